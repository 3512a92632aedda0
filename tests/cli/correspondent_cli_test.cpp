// The commands about lists, robots and the user's own addresses.

#include "tests/cli/cli_fixture.h"

namespace pelk {
namespace {

class CorrespondentCliTest : public CliTest {
 protected:
    void SetUp() override {
        const std::string separator = "From x Tue Mar  4 09:12:00 2025\n";
        folder.write("mail/Sent",
                     separator + "From: Me <me@a.example>\nTo: ann@a.example\n\nHi\n\n");
        folder.write("mail/Inbox",
                     separator +
                         "From: Ann <ann@a.example>\nTo: users@l.example, me@a.example\n"
                         "List-Post: <mailto:users@l.example>\n\nHi\n\n" +
                         separator +
                         "From: News <news@b.example>\nTo: me@a.example\n"
                         "List-Unsubscribe: <https://b.example>\n\nHi\n\n");
        ASSERT_EQ(run("scan mail").status, 0);
    }
};

TEST_F(CorrespondentCliTest, listsAndLeavesThemOut) {
    EXPECT_EQ(run("lists").output,
              "     1  robot  news@b.example  (List-Unsubscribe in its e-mails)\n"
              "     1  list   users@l.example  (List-Post in its e-mails)\n");
    expectSays("lists --json", "\"kind\": \"robot\",\n        \"mails\": 1,\n");
    const Outcome contacts = run("contacts --without-lists");
    EXPECT_EQ(contacts.output, "    1  Ann (ann@a.example)\n    3  me@a.example (me@a.example)\n");
    EXPECT_EQ(contacts.errors, "pelk: 2 contacts left out.\n");
    EXPECT_EQ(run("relations me@a.example --without-lists").output, "strong      2      1  Ann\n");
    EXPECT_EQ(run("domains example --without-lists").output, "a/\n");
    EXPECT_EQ(run("domains example").output, "a/\nb/\nl/\n");
}

TEST_F(CorrespondentCliTest, findsAndCorrectsTheUsersAddresses) {
    EXPECT_EQ(run("me").output, "me@a.example  (in folders for sent mail)\n");
    const Outcome set = run("me ANN@a.example nobody@x");
    EXPECT_EQ(set.output, "ann@a.example  (set by you)\nnobody@x  (set by you)\n");
    EXPECT_EQ(set.errors, "pelk: No contact has the address nobody@x.\n");
    expectSays("me --json", "\"address\": \"ann@a.example\",");
    EXPECT_EQ(run("me auto").output, "me@a.example  (in folders for sent mail)\n");
    expectRefused("me Ann", 2, "Ann is not an e-mail address; see pelk --help");
    EXPECT_EQ(run("delete-database --yes").status, 0);
    expectSays("me", "No address is known to be yours.");
}

}  // namespace
}  // namespace pelk
