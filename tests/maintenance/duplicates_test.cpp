#include "maintenance/duplicates.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>
#include <set>

#include "tests/support/core_platform.h"
#include "views/contact_text.h"

namespace pelk {
namespace {

/// The contacts of 500 made-up persons, with their true identities: some have several addresses,
/// under names that differ as they do in mail. About five pairs are namesakes, some are relatives
/// or fathers and sons, and there are offices.
class MadeUpPeople {
 public:
    explicit MadeUpPeople(unsigned seed) : random_(seed) {
        for (int person = 0; person < kPersons; ++person)
            add(person, drawName(person));
        for (const char* const office : {"Customer Service", "Info", "Sales Team"})
            for (const char* const local : {"info", "support", "no-reply", "sales"})
                for (int firm = 0; firm < 3; ++firm)
                    addContact(--last_, office, std::string(local) + "@" + domain());
        for (std::size_t contact = 0; contact < owners.size(); ++contact)
            meet(static_cast<int>(contact) + 1);
    }

    int truePairs() const {
        std::map<int, int> contacts;
        int pairs = 0;
        for (const int owner : owners)
            pairs += contacts[owner]++;
        return pairs;
    }

    bool isOne(int id, int otherId) const {
        return owners[static_cast<std::size_t>(id) - 1] ==
               owners[static_cast<std::size_t>(otherId) - 1];
    }

    std::unique_ptr<Database> database = emptyDatabase();
    /// By the id of the contact less 1: whose it is.
    std::vector<int> owners;

 private:
    static constexpr int kPersons = 500;

    struct Name {
        std::string first, plainFirst, middle, last, plainLast;
        std::string suffix;
    };

    int upTo(int most) { return static_cast<int>(random_() % (static_cast<unsigned>(most) + 1)); }
    bool chance(int percent) { return upTo(99) < percent; }
    template <typename Values>
    auto one(const Values& values) {
        return values[static_cast<std::size_t>(upTo(static_cast<int>(std::size(values)) - 1))];
    }

    Name drawName(int person) {
        using Pair = std::pair<const char*, const char*>;
        static constexpr Pair kFirst[] = {
            {"Ann", "ann"},           {"Robert", "robert"}, {"Zoë", "zoe"},
            {"José", "jose"},         {"Maria", "maria"},   {"Peter", "peter"},
            {"Jürgen", "juergen"},    {"Søren", "soren"},   {"David", "david"},
            {"Laura", "laura"},       {"Renée", "renee"},   {"Wei", "wei"},
            {"Thomas", "thomas"},     {"Andrew", "andrew"}, {"Łukasz", "lukasz"},
            {"Olga", "olga"},         {"Sarah", "sarah"},   {"James", "james"},
            {"Jean-Luc", "jean-luc"}, {"Priya", "priya"},   {"Hannah", "hannah"},
            {"Björn", "bjoern"},      {"Carla", "carla"},   {"Michael", "michael"}};
        static constexpr Pair kBegin[] = {
            {"Har", "har"},      {"Mül", "muel"},      {"Whit", "whit"}, {"Král", "kral"},
            {"O'Bren", "obren"}, {"Castel", "castel"}, {"Nowa", "nowa"}, {"Fischer", "fischer"},
            {"Lind", "lind"},    {"Garc", "garc"},     {"Sten", "sten"}, {"Hoff", "hoff"},
            {"Ber", "ber"},      {"Dun", "dun"},       {"Pell", "pell"}};
        static constexpr Pair kEnd[] = {{"ström", "stroem"},  {"son", "son"},   {"field", "field"},
                                        {"kova", "kova"},     {"mann", "mann"}, {"ía", "ia"},
                                        {"ington", "ington"}, {"ler", "ler"},   {"é", "e"},
                                        {"stein", "stein"},   {"ak", "ak"},     {"well", "well"}};
        static constexpr std::array kMiddle{"",   "der", "lo", "ma", "ten", "ri", "ga",
                                            "bo", "van", "li", "do", "sel", "mo", "ter"};
        const Pair first = one(kFirst), begin = one(kBegin), end = one(kEnd);
        const std::string middle = one(kMiddle);
        Name name{first.first,
                  first.second,
                  std::string(1, static_cast<char>('A' + upTo(25))),
                  begin.first + middle + end.first,
                  begin.second + middle + end.second,
                  ""};
        if (person > 0 && person % 125 == 0)  // a namesake
            name = names_[static_cast<std::size_t>(upTo(person - 1))];
        if (person > 0 && person % 100 == 30) {  // the son
            name = names_[static_cast<std::size_t>(person - 1)];
            name.suffix = " Jr.";
        }
        if (person > 0 && person % 60 == 20) {  // a relative
            name.last = names_.back().last;
            name.plainLast = names_.back().plainLast;
        }
        names_.push_back(name);
        return name;
    }

    std::string domain() {
        static constexpr std::array kFree{"gmail.com", "outlook.com", "gmx.de", "yahoo.co.uk"};
        return chance(30) ? one(kFree) : "firm" + std::to_string(upTo(60)) + ".example";
    }

    std::string localPart(const Name& name, bool isFree) {
        const std::string& first = name.plainFirst;
        const std::string& last = name.plainLast;
        const int form = upTo(99);
        const std::string local = form < 45   ? first + "." + last
                                  : form < 65 ? first.substr(0, 1) + last
                                  : form < 73 ? first
                                  : form < 80 ? last + first.substr(0, 1)
                                  : form < 88 ? first + "_" + last
                                  : form < 94 ? last
                                              : "star" + std::to_string(upTo(9999));
        return isFree && chance(40) ? local + std::to_string(upTo(99)) : local;
    }

    std::string shownName(const Name& name) {
        const std::string plain = name.first + " " + name.last + name.suffix;
        const int form = upTo(99);
        if (form < 45)
            return plain;
        if (form < 60)
            return name.last + ", " + name.first + name.suffix;
        if (form < 68)
            return name.plainFirst + " " + name.plainLast + name.suffix;
        if (form < 76)
            return name.first.substr(0, name.first[0] < 0 ? 2 : 1) + ". " + name.last + name.suffix;
        if (form < 82)
            return name.first + " " + name.middle + ". " + name.last + name.suffix;
        if (form < 92)
            return "";
        if (form < 95)
            return name.first;
        if (form < 97)
            return nickname(name.first) + " " + name.last;
        return form < 98 ? "Dr. " + plain : plain + " (Sales)";
    }

    static std::string nickname(const std::string& first) {
        static const std::map<std::string, std::string> kNicknames = {
            {"Robert", "Bob"}, {"Andrew", "Andy"}, {"Thomas", "Tom"}, {"Michael", "Mike"}};
        return kNicknames.contains(first) ? kNicknames.at(first) : first;
    }

    void add(int person, const Name& name) {
        const int addresses = chance(70) ? 1 : chance(85) ? 2 : 3;
        std::string home;
        for (int address = 0; address < addresses; ++address) {
            const std::string at = !home.empty() && chance(15) ? home : domain();
            home = at;
            const std::string mail = localPart(name, !at.starts_with("firm")) + "@" + at;
            const std::string shown = shownName(name);
            addContact(person, shown.empty() ? mail : shown, mail);
        }
    }

    /// As in a database of mail, an address has one contact.
    void addContact(int owner, const std::string& name, const std::string& address) {
        if (!addresses_.insert(address).second)
            return;
        owners.push_back(owner);
        database->addContact(name, address);
    }

    /// Everybody knows the owner of the mail, 1, and some people of a circle of their own.
    void meet(int id) {
        database->addMailBetween(id, 1);
        const int person = owners[static_cast<std::size_t>(id) - 1];
        const int count = static_cast<int>(owners.size());
        for (int other = 0; other < 8; ++other)
            if (person >= 0 && chance(60))
                database->addMailBetween(id, 1 + (person * 7919 + other * 31) % count);
    }

    std::mt19937 random_;
    std::vector<Name> names_;
    std::set<std::string> addresses_;
    int last_ = 0;
};

TEST(Duplicates, areFoundWithFewErrors) {
    const auto language = makeLanguage();
    std::size_t found = 0;
    int right = 0;
    int truth = 0;
    std::string errors;
    for (unsigned seed = 1; seed <= 10; ++seed) {
        const MadeUpPeople people(seed);
        truth += people.truePairs();
        for (const auto& [id, otherId, reason, text] :
             findDuplicates(*people.database, *language)) {
            ++found;
            if (people.isOne(id, otherId))
                ++right;
            else
                errors += describe(*people.database->contact(id)) + " is not " +
                          describe(*people.database->contact(otherId)) + ": " + text + "\n";
        }
    }
    EXPECT_GE(right, 0.95 * static_cast<double>(found)) << errors;
    EXPECT_GE(right, 0.80 * truth);
}

TEST(Duplicates, haveReasons) {
    using Contacts = std::vector<std::pair<const char*, const char*>>;
    const std::pair<Contacts, const char*> cases[] = {
        {{{"Ann Smith", "a@a"}, {"SMITH Ánn (Sales)", "b@b"}}, "same name in another order"},
        {{{"Ann Smith", "a@a"}, {"'Ann M. Smith'", "b@b"}}, "same first name and surname"},
        {{{"Ann C. Smith", "a@a"}, {"Ann M. Smith", "b@b"}}, ""},
        {{{"Jörg O\u2019Neill", "a@a"}, {"ONeill, Joerg", "b@b"}}, "same name"},
        {{{"Ivan Petrov", "a@a"}, {"И. Петров", "b@b"}, {"Иван Петров", "c@c"}},
         "initials that agree with nobody else"},
        {{{"A. Smith", "a@a"}, {"Ann Smith", "b@b"}, {"Alan Smith", "c@c"}}, ""},
        {{{"山田 太郎", "a@a"}, {"山田 太郎", "b@b"}}, "same name"},
        {{{"Ann Smith", "ann.smith@a"}, {"Ann", "ann-smith@b"}},
         "names agree, both are ann.smith@..."},
        {{{"Bob Smith", "robert.smith@a"}, {"Robert Smith", "x@b"}}, "name spelled in an address"},
        {{{"asmith@a", "asmith@a"}, {"Ann Smith", "b@b"}}, "name abbreviated in an address"},
        {{{"a.b+x@gmail.com", "a.b+x@gmail.com"}, {"Ann", "ab@googlemail.com"}},
         "addresses of one mailbox"},
        {{{"Ann", "ann@a"}, {"Ann", "ann@b"}}, ""},
        {{{"Ann Smith", "ann.smith1@a"}, {"Ann Smith", "ann.smith2@a"}}, ""},
        {{{"A. Smith", "a@a"}, {"Ann Smith Jr.", "ann.smith@b"}}, ""},
        {{{"ann.smith@a", "ann.smith@a"}, {"Ann Smith Jr.", "b@b"}}, ""},
        {{{"Ann and Bob Smith", "a@a"}, {"Ann and Bob Smith", "b@b"}}, ""},
        {{{"Ann Smith", "no-reply@a"}, {"Ann Smith", "info@b"}}, ""},
        {{{"data.desk@a", "data.desk@a"}, {"data.desk@b", "data.desk@b"}}, ""},
        {{{"Ann Smith", "a@a"}, {"Ann Smith", "b@b"}, {"Ann Smith", "c@c"}}, ""}};
    const auto language = makeLanguage();
    for (const auto& [contacts, reason] : cases) {
        const auto database = emptyDatabase();
        for (const auto& [name, address] : contacts)
            database->addContact(name, address);
        const std::vector<Duplicate> found = findDuplicates(*database, *language);
        EXPECT_EQ(found.empty() ? "" : found[0].text, reason) << contacts[0].first;
        EXPECT_LE(found.size(), 1U) << contacts[0].first;
    }
}

/// A name at three domains is common, unless its owners know the same people.
TEST(Duplicates, knowTheSamePeople) {
    const auto database = emptyDatabase();
    for (const char* const address : {"a@a", "b@b", "c@c"})
        database->addContact("Ann Smith", address);
    const auto idOf = [&database](const char* address) {
        const int id = database->contactIdByAddress(address);
        return id != 0 ? id : database->addContact("", address);
    };
    for (const char* const friends : {"x@x", "y@y", "z@z"})
        for (const int ann : {1, 3})
            database->addMailBetween(ann, idOf(friends));
    const std::vector<Duplicate> found = findDuplicates(*database, *makeLanguage());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].otherId, 3);
}

TEST(Duplicates, areDifferentContactsInAForeignDocument) {
    std::string contacts;
    for (const char* const id : {"3", "3", "x", "0", "-1", "002"})
        contacts +=
            "<contact id='" + std::string(id) + "'><emails><email value='a@a'/></emails></contact>";
    const auto database = loadDocument("<pelkDB totalContacts='3'><contacts>" + contacts +
                                       "</contacts><relations/></pelkDB>");
    EXPECT_TRUE(findDuplicates(*database, *makeLanguage()).empty());
    const auto reversed = loadDocument(
        "<pelkDB totalContacts='3'><contacts><contact id='3'><emails><email value='a@a'/></emails>"
        "</contact><contact id='2'><emails><email value='a@a'/></emails></contact></contacts>"
        "<relations/></pelkDB>");
    ASSERT_EQ(findDuplicates(*reversed, *makeLanguage()).size(), 1U);
    EXPECT_EQ(findDuplicates(*reversed, *makeLanguage())[0].id, 2) << "the lower id comes first";
}

}  // namespace
}  // namespace pelk
