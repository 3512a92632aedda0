#include "db/database.h"

#include "db/document_check.h"
#include "db/queries.h"
#include "tests/db/documents.h"
#include "tests/support/message_of.h"

namespace pelk {
namespace {

TEST(Database, isEmptyAfterTheFirstStartAndFailsMalformedQueries) {
    const Database database = load(kFirstStartDocument);
    EXPECT_EQ(database.date(), "1970-01-01T00:00:00");
    EXPECT_EQ(database.totalMails(), "0");
    EXPECT_EQ(database.thresholds().strong, 50);
    EXPECT_EQ(database.thresholds().weak, 5);
    EXPECT_EQ(database.contactCount(), 0U);
    EXPECT_EQ(database.relationCount(), 0U);
    EXPECT_EQ(database.strongestWeight(), 0);
    EXPECT_THROW(database.root().select(queries::contactByAddress("o'hara@x")), MalformedQuery);
    EXPECT_THROW(database.contactIdByAddress("o'hara@x"), MalformedQuery);
}

TEST(Database, writesTheExactDocument) {
    Database database = load(kFirstStartDocument);
    EXPECT_EQ(database.addContact("Ann \"A\" & <Co>", "ann@a.example"), 1);
    EXPECT_EQ(database.addContact("", "bob@b.example"), 2);
    database.countMails(1);
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
    EXPECT_NO_THROW(requireSoundDocument(database.root()));
}

TEST(Database, refusesOtherDocumentsAndContactsWithoutAnId) {
    for (const char* xml : {"<other/>", "<pelkDB/>", "<pelkDB><contacts/></pelkDB>",
                            "<pelkDB><contacts/><contacts/><relations/></pelkDB>"})
        EXPECT_THROW(load(xml), Error) << xml;
    Database database = load("<pelkDB totalContacts='32766'><contacts/><relations/></pelkDB>");
    EXPECT_EQ(database.addContact("last", "last@a.example"), kMaxContactId);
    const std::string before = database.xml();
    EXPECT_THROW(database.addContact("more", "more@a.example"), ContactLimitReached);
    EXPECT_EQ(database.xml(), before);
}

TEST(Database, readsForeignNumbersLeniently) {
    Database database = load(documentOf(contactXml("12abc", "a@x"),
                                        relationXml("1", "2", "7.9x") + relationXml("03", "x", "") +
                                            relationXml("4", "99999", "-5")));
    EXPECT_EQ(database.contactIdByAddress("a@x"), 12);
    EXPECT_FALSE(database.contact(12)) << "a query for 12 does not find 12abc";
    EXPECT_EQ(database.strongestWeight(), 8);
    EXPECT_EQ(database.relations()[1].part1, 3);
    EXPECT_EQ(database.relations()[2].part2, 0);
    database.addMailBetween(1, 2);
    EXPECT_EQ(database.relationsOf(1)[0].weight, 8);
    EXPECT_THROW(database.relations()[0].partnerOf(5), Error);
}

TEST(Database, movesAddressesFromAndToAnyContact) {
    Database database = load(documentOf(
        "<contact id='1'/><contact id='0'/>" + contactXml("2", "a@x") + contactXml("3", "a@x") +
            "<contact id='4'><emails><email value='b@x'/><email/></emails><emails><email "
            "value='a@x'/></emails></contact>",
        ""));
    database.moveAddresses(4, 1);
    EXPECT_EQ(database.contact(1)->addresses, (std::vector<std::string>{"b@x", "a@x"}));
    EXPECT_EQ(database.contact(4)->addresses, std::vector<std::string>());
    EXPECT_EQ(database.contactIdByAddress("a@x"), 1) << "the first in the document";
    database.removeContacts({1, 1});
    EXPECT_EQ(database.contactIdByAddress("a@x"), 2);
    EXPECT_EQ(database.contactIdByAddress("b@x"), 0);
    database.moveAddresses(3, 2);
    EXPECT_EQ(database.contact(2)->addresses, (std::vector<std::string>{"a@x", "a@x"}));
    const std::uint64_t revision = database.revision();
    database.moveAddresses(2, 2);
    database.moveAddresses(2, 9);
    database.removeContacts({0, 9});
    EXPECT_FALSE(database.renameContact(9, "Nobody"));
    EXPECT_EQ(database.revision(), revision);
}

TEST(Database, addsWeightsOfRelations) {
    Database database = load(documentOf("", relationXml("1", "2", "7.9x")));
    database.addRelationWeight(2, 1, 4);
    database.addRelationWeight(3, 1, 5);
    const std::string xml = database.xml();
    EXPECT_NE(xml.find(R"(<relation part1="1" part2="2" weight="11"/>)"
                       R"(<relation part1="1" part2="3" weight="5"/></relations>)"),
              std::string::npos)
        << xml;
    EXPECT_EQ(messageOf([&] { database.addRelationWeight(2, 2, 1); }),
              "Unreachable code, addrelationweight");
    EXPECT_EQ(database.xml(), xml);
}

TEST(Database, findsTheNextRelationOfARepeatedPair) {
    const std::string twice = relationXml("1", "2", "7") + relationXml("1", "2", "8");
    const std::string others =
        relationXml("3", "4", "1") + relationXml("3", "5", "1") + relationXml("3", "6", "1");
    const auto weight = [](const Database& database) {
        return database.relationOfPair(2, 1).value_or(Relation{}).weight;
    };
    // Without the other relations, the first removal makes the index compact itself.
    for (const bool removeOthers : {false, true}) {
        Database database = load(documentOf(contactXml("1", "a@x"), others + twice));
        for (int id = 4; removeOthers && id <= 6; ++id)
            database.removeRelation(3, id);
        for (const int expected : {7, 8, 0, 0}) {
            EXPECT_EQ(weight(database), expected);
            database.removeRelation(1, 2);
        }
        database.addRelationWeight(1, 2, 9);
        EXPECT_EQ(weight(database), 9);
    }
    Database database = load(documentOf(contactXml("1", "a@x"), others + twice));
    database.removeContacts({1});
    database.addRelationWeight(1, 2, 9);
    database.removeRelation(1, 2);
    EXPECT_EQ(weight(database), 0);
    EXPECT_EQ(database.relationCount(), 3U);
}

/// Returns the fault found in a document with these attributes, contacts and relations.
std::string faultOf(const std::string& attributes, const std::string& contacts = "",
                    const std::string& relations = "") {
    return messageOf([&] {
        requireSoundDocument(load("<pelkDB " + attributes + "><contacts>" + contacts +
                                  "</contacts><relations>" + relations + "</relations></pelkDB>")
                                 .root());
    });
}

constexpr const char* kDated = "date='2020-02-29T23:59:60'";

TEST(DocumentCheck, namesEachFault) {
    const std::string one = contactXml("1", "a@x");
    const std::string two = one + contactXml("2", "b@x");
    const struct {
        std::string contacts;
        std::string relations;
        const char* named;
    } cases[] = {
        {contactXml("0", "a@x"), "", "\"0\""},
        {contactXml("01", "a@x"), "", "\"01\""},
        {one + contactXml("1", "b@x"), "", "id 1"},
        {one + contactXml("2", "a@x"), "", "a@x belongs to two"},
        {contactXml("1", "A@x"), "", "\"A@x\""},
        {contactXml("1", ""), "", "\"\""},
        {two, relationXml("2", "1", "3"), "2 and 1"},
        {two, relationXml("1", "1", "3"), "1 and 1"},
        {two, relationXml("1", "5", "3"), "1 and 5"},
        {two, relationXml("1", "2", "-3"), "weight"},
        {two, relationXml("1", "2", "9223372036854775808"), "weight"},
        {two, relationXml("1", "2", "3") + relationXml("1", "2", "4"), "two relations"},
    };
    for (const auto& [contacts, relations, named] : cases)
        EXPECT_NE(faultOf(kDated, contacts, relations).find(named), std::string::npos) << named;
    for (const char* date : {"", "x", "2026-99-99T99:99:99", "2026-02-30T00:00:00",
                             "2026-00-01T00:00:00", "2026-01-01T24:00:00", "2026-01-01 00:00:00"})
        EXPECT_NE(faultOf("date='" + std::string(date) + "'").find(" date "), std::string::npos);
    for (const char* thresholds : {"maxInd='101'", "maxInd='5' minInd='50'", "maxInd='5x'"})
        EXPECT_NE(faultOf(kDated + std::string(" ") + thresholds).find("maxInd"),
                  std::string::npos);
}

TEST(DocumentCheck, acceptsWhatTheProgramCanHaveWritten) {
    const std::string odd =
        "<contact id='1'><emails><email value='&#x130;@x'/><email value='a@x'/>"
        "<email value='a@x'/><email/></emails></contact><contact id='2'/>";
    EXPECT_EQ(faultOf(kDated, odd, relationXml("1", "2", "0")), "");
    EXPECT_EQ(faultOf(kDated, odd, relationXml("1", "2", "9223372036854775807")), "");
}

TEST(Database, repairsACountThatWouldRepeatIdsOrAssignNone) {
    for (const char* count : {"0", "4", "-7", "40000", "9223372036854775807", "x"}) {
        Database database = load("<pelkDB totalContacts='" + std::string(count) + "'><contacts>" +
                                 contactXml("5", "a@x") + "</contacts><relations/></pelkDB>");
        const std::optional<std::string> said = database.putCountRight();
        ASSERT_TRUE(said) << count;
        EXPECT_NE(said->find("\"" + std::string(count) + "\""), std::string::npos);
        EXPECT_EQ(database.addContact("", "b@x"), 6);
        EXPECT_FALSE(database.putCountRight());
    }
    EXPECT_THROW(
        load("<pelkDB totalContacts='9223372036854775807'><contacts/><relations/></pelkDB>")
            .addContact("", "a@x"),
        ContactLimitReached);
}

}  // namespace
}  // namespace pelk
