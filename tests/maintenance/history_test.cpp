// Whatever the program has done to a database, its document can be loaded again.

#include <gtest/gtest.h>

#include <random>

#include "maintenance/contact_acts.h"
#include "maintenance/database_import.h"
#include "platform/utf8.h"
#include "tests/support/core_platform.h"

namespace pelk {
namespace {

/// Does to a database what users do, at random, with all that names and addresses may hold.
class RandomHistory : public ImportGuide {
 public:
    RandomHistory(unsigned seed, Storage& storage) : random_(seed), storage_(storage) {}
    bool confirmsMerge(const std::string&) override { return false; }

    void act(Database& database, Database& other) {
        const int id = number(12);
        const int act = number(7);
        if (act == 1)
            renameContact(database, storage_, id, text());
        else if (act == 2)
            mergeContacts(database, storage_, {id, number(12), number(12)}, text());
        else if (act == 3)
            deleteContacts(database, storage_, {id});
        else if (act == 4) {
            storage_.exportDatabase(other, "/in.db");
            EXPECT_EQ(importDatabaseFile(database, "/in.db", storage_, *this).fault, "");
        } else
            for (Database* met : {&database, &other})
                meet(*met);
    }

 private:
    int number(int most) { return 1 + static_cast<int>(random_() % most); }
    std::string text() {
        constexpr const char* pieces[] = {"a",    "'",    "\"", "<b>",      "&",
                                          "]]>",  "\t\n", "\r", "\xC2\x85", "\xE2\x80\xAE",
                                          "\xFF", "\x01", "İ",  "ſ",        "\xF0\x9F\x98\x80",
                                          "ﬁ"};
        std::string text;
        for (int count = number(4); count > 0; --count)
            text += pieces[random_() % std::size(pieces)];
        return text;
    }
    void meet(Database& database) {
        const std::string address = cleanText(text()) + "@x";
        if (database.ownerOf(address) == 0)
            database.addContact(cleanText(text()), address);
        const int last = static_cast<int>(database.totalContacts());
        const int a = number(last);
        const int b = number(last);
        if (database.contact(a) && database.contact(b) && a != b)
            database.addRelationWeight(a, b, number(3) - 1);
    }

    std::mt19937 random_;
    Storage& storage_;
};

TEST(History, leavesADocumentThatLoadsAsItIs) {
    CorePlatform core;
    core.files.folders.insert({"/data/pelk", "/addin"});
    for (unsigned seed = 0; seed < 15; ++seed) {
        RandomHistory history(seed, core.storage());
        const std::unique_ptr<Database> database = emptyDatabase();
        const std::unique_ptr<Database> other = emptyDatabase();
        for (int step = 0; step < 60; ++step)
            history.act(*database, *other);
        const LoadedDocument loaded = readDocument(database->xml(), core.storage());
        ASSERT_EQ(loaded.database->xml(), database->xml());
        ASSERT_FALSE(loaded.putRight);
    }
}

}  // namespace
}  // namespace pelk
