// Scans a mail server from the command line.

#include "tests/cli/cli_fixture.h"
#include "tests/imap/dovecot.h"

namespace pelk {
namespace {

TEST_F(CliTest, scansAMailServer) {
    Dovecot dovecot;
    mustRun("touch -d @1600000001 " +
            dovecot.folder.write("mail/new/1600000001.x.h", "From: a@x.org\nTo: b@x.org\n\nHi\n"));
    dovecot.start();
    const std::string scan = "scan imap://jane@127.0.0.1:" + std::to_string(dovecot.port) + " ";
    const auto refused = [&](const std::string& command, const std::string& error) {
        expectRefused(scan + "--password-command " + command, 1, error);
    };
    refused("'echo s3cret-word; exit 3'", "The password command failed with exit status 3.");
    refused("'kill -9 $$'", "The password command was ended by signal 9.");
    refused("true", "The password command prints no password.");
    refused("'echo wrong'",
            "The mail server 127.0.0.1 refuses to let jane in: Authentication "
            "failed.");
    expectRefused(scan, 2, "a mail server needs --password-command; see pelk --help");
    expectRefused(scan + "Inbox", 2, "a mail server needs --password-command; see pelk --help");
    EXPECT_FALSE(std::filesystem::exists(database));
    const std::string right = scan + "--password-command 'echo s3cret-word; echo more'";
    const Outcome first = run(right);
    EXPECT_EQ(first.output, "e-mails counted: 1\ncontacts: 2 (2 new)\nrelations: 1 (1 new)\n");
    EXPECT_EQ(first.errors, "");
    expectSays(right, "e-mails counted: 0\n");
    EXPECT_TRUE(std::filesystem::exists(folder.path() + "/data/pelk/pelk-imap.db"));
    // Two accounts, each with its own password, and a file.
    Dovecot other;
    other.folder.write("mail/new/1600000001.x.h", "From: c@x.org\nTo: d@x.org\n\nHi\n");
    other.start();
    const std::string path = other.folder.write("box",
                                                "From a@x Tue Jan  2 03:04:05 2001\n"
                                                "From: e@x.org\nTo: f@x.org\n\nHi\n");
    const std::string both = "scan imap://jane@127.0.0.1:" + std::to_string(other.port) + " " +
                             path + " imap://jane@127.0.0.1:" + std::to_string(dovecot.port) +
                             " --password-command 'case $PELK_SERVER in *" +
                             std::to_string(other.port) +
                             ") echo s3cret-word;; *) printf s3cret-;"
                             " echo word;; esac'";
    expectSays(both, "e-mails counted: 2\n");
    expectSays(both, "e-mails counted: 0\n");
}

}  // namespace
}  // namespace pelk
