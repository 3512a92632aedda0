#include "db/database.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "db/document_check.h"
#include "db/queries.h"
#include "tests/support/core_platform.h"

namespace pelk {
namespace {

Database load(std::string_view xml) {
    return std::move(*loadDocument(xml));
}

std::string documentOf(const std::string& contacts, const std::string& relations) {
    return "<pelkDB date='2020-01-01T00:00:00' totalMails='0' totalContacts='9' maxInd='50' "
           "minInd='5'><contacts>" +
           contacts + "</contacts><relations total='0'>" + relations + "</relations></pelkDB>";
}

std::string contactXml(const std::string& id, const std::string& address) {
    return "<contact id='" + id + "'><emails><email value='" + address + "'/></emails></contact>";
}

std::string relationXml(const std::string& part1, const std::string& part2,
                        const std::string& weight) {
    return "<relation part1='" + part1 + "' part2='" + part2 + "' weight='" + weight + "'/>";
}

TEST(Database, ofAFirstStartIsEmpty) {
    const Database database = load(kFirstStartDocument);
    EXPECT_EQ(database.date(), "1970-01-01T00:00:00");
    EXPECT_EQ(database.totalMails(), "0");
    EXPECT_EQ(database.thresholds().strong, 50);
    EXPECT_EQ(database.thresholds().weak, 5);
    EXPECT_EQ(database.contactCount(), 0U);
    EXPECT_EQ(database.relationCount(), 0U);
    EXPECT_EQ(database.strongestWeight(), 0);
}

TEST(Database, writesTheDocumentToTheLetter) {
    Database database = load(kFirstStartDocument);
    EXPECT_EQ(database.addContact("Ann \"A\" & <Co>", "ann@a.example"), 1);
    EXPECT_EQ(database.addContact("", "bob@b.example"), 2);
    database.countMail();
    database.addMailBetween(2, 1);
    database.addMailBetween(1, 2);
    database.addMailBetween(1, 1);
    database.addMailBetween(0, 2);
    database.setDate("2026-11-22T09:05:00");
    const std::string expected =
        R"(<?xml version="1.0" encoding="UTF-16"?><pelkDB date="2026-11-22T09:05:00" )"
        R"(totalMails="1" totalContacts="2" maxInd="50" minInd="5"><contacts>)"
        R"(<contact id="1" name="Ann &quot;A&quot; &amp; &lt;Co>"><emails>)"
        R"(<email value="ann@a.example"/></emails></contact>)"
        R"(<contact id="2"><emails><email value="bob@b.example"/></emails></contact></contacts>)"
        R"(<relations total="0"><relation part1="1" part2="2" weight="2"/></relations></pelkDB>)";
    EXPECT_EQ(database.xml(), expected);
    EXPECT_EQ(load(expected).xml(), expected);
    EXPECT_NO_THROW(requireSoundDocument(database.root(), *makeLanguage()));
}

TEST(Database, refusesWhatIsNoContactDatabase) {
    for (const char* xml : {"<other/>", "<pelkDB/>", "<pelkDB><contacts/></pelkDB>",
                            "<pelkDB><contacts/><contacts/><relations/></pelkDB>"})
        EXPECT_THROW(load(xml), Error) << xml;
}

TEST(Database, refusesTheContactThatHasNoId) {
    Database database = load("<pelkDB totalContacts='32766'><contacts/><relations/></pelkDB>");
    EXPECT_EQ(database.addContact("last", "last@a.example"), kMaxContactId);
    const std::string before = database.xml();
    EXPECT_THROW(database.addContact("more", "more@a.example"), ContactLimitReached);
    EXPECT_EQ(database.xml(), before);
}

TEST(Database, readsForeignNumbersLeniently) {
    Database database = load(documentOf(contactXml("12abc", "a@x"),
                                        relationXml("1", "2", "7.9x") + relationXml("3", "x", "") +
                                            relationXml("4", "99999", "-5")));
    EXPECT_EQ(database.contactIdByAddress("a@x"), 12);
    EXPECT_FALSE(database.contact(12)) << "a query for 12 does not find 12abc";
    EXPECT_EQ(database.strongestWeight(), 8);
    EXPECT_EQ(database.relations()[2].part2, 0);
    database.addMailBetween(1, 2);
    EXPECT_EQ(database.relationsOf(1)[0].weight, 8);
    EXPECT_THROW(database.relations()[0].partnerOf(5), Error);
}

TEST(Database, failsALookUpThatWouldMakeAMalformedQuery) {
    const Database database = load(kFirstStartDocument);
    EXPECT_THROW(database.root().select(queries::contactByAddress("o'hara@x")), MalformedQuery);
    EXPECT_THROW(database.contactIdByAddress("o'hara@x"), MalformedQuery);
}

XmlElement firstOf(const std::vector<XmlElement>& elements) {
    return elements.empty() ? XmlElement() : elements.front();
}

/// Holds every look-up to its query, for all the ids and addresses that may occur.
void expectIndexesEqualQueries(const Database& database, int ids) {
    const XmlElement& root = database.root();
    for (int id = 0; id <= ids; ++id) {
        ASSERT_EQ(database.contactElement(id), firstOf(root.select(queries::contactById(id))));
        const std::string address = "p" + std::to_string(id) + "@x";
        ASSERT_EQ(database.contactElementByAddress(address),
                  firstOf(root.select(queries::contactByAddress(address))));
        ASSERT_EQ(database.relationElementsOf(id), root.select(queries::relationsOf(id)));
        for (int other = 0; other <= ids; ++other)
            ASSERT_EQ(database.relationElement(id, other),
                      firstOf(root.select(queries::relationOfPair(id, other))));
    }
    ASSERT_EQ(database.contactCount(), root.select(queries::kContacts).size());
    ASSERT_EQ(database.relationCount(), root.select(queries::kRelations).size());
}

/// A document in which ids, addresses and pairs repeat, stand in the wrong order or are no ids.
std::string randomDocument(std::mt19937& random, int ids) {
    const auto number = [&random](int most) { return static_cast<int>(random() % (most + 1)); };
    const auto id = [&] {
        const std::vector<std::string> odd{"", "x", "007", "+3", "40000"};
        return random() % 8 == 0 ? odd[random() % odd.size()] : std::to_string(number(ids));
    };
    std::string contacts;
    std::string relations;
    for (int count = number(8); count > 0; --count)
        contacts += contactXml(id(), "p" + std::to_string(number(ids)) + "@x");
    for (int count = number(12); count > 0; --count)
        relations += relationXml(id(), id(), std::to_string(number(20)));
    return documentOf(contacts, relations);
}

TEST(Database, indexesEqualTheirQueriesOnRandomDocumentsEditedAtRandom) {
    constexpr int kIds = 12;
    std::mt19937 random(2026);
    for (int round = 0; round < 150; ++round) {
        Database database = load(randomDocument(random, kIds));
        expectIndexesEqualQueries(database, kIds);
        for (int edit = 0; edit < 6; ++edit) {
            const std::uint64_t revision = database.revision();
            const int first = 1 + static_cast<int>(random() % kIds);
            if (random() % 2 == 0)
                database.addContact("", "p" + std::to_string(first) + "@x");
            else
                database.addMailBetween(first, first % kIds + 1);
            EXPECT_GT(database.revision(), revision);
        }
        expectIndexesEqualQueries(database, kIds + 6);
    }
}

TEST(DocumentCheck, namesEachFault) {
    const std::unique_ptr<Language> language = makeLanguage();
    const auto faultOf = [&language](const std::string& xml) -> std::string {
        try {
            requireSoundDocument(load(xml).root(), *language);
        } catch (const Error& error) {
            return error.what();
        }
        return "";
    };
    const std::string one = contactXml("1", "a@x");
    const std::string two = one + contactXml("2", "b@x");
    EXPECT_EQ(faultOf(documentOf(two, relationXml("1", "2", "3"))), "");
    for (const std::string& xml : {
             documentOf(contactXml("0", "a@x"), ""),
             documentOf(contactXml("10", "a@x"), ""),
             documentOf(contactXml("01", "a@x"), ""),
             documentOf(one + contactXml("1", "b@x"), ""),
             documentOf(one + contactXml("2", "a@x"), ""),
             documentOf(contactXml("1", "A@x"), ""),
             documentOf(two, relationXml("2", "1", "3")),
             documentOf(two, relationXml("1", "1", "3")),
             documentOf(two, relationXml("1", "5", "3")),
             documentOf(two, relationXml("1", "2", "-3")),
             documentOf(two, relationXml("1", "2", "3") + relationXml("1", "2", "4")),
             std::string("<pelkDB><contacts/><relations/></pelkDB>"),
             std::string("<pelkDB date='2020-01-01T00:00:00' totalMails='0' totalContacts='0' "
                         "maxInd='101' minInd='5'><contacts/><relations/></pelkDB>"),
         })
        EXPECT_NE(faultOf(xml), "") << xml;
}

}  // namespace
}  // namespace pelk
