// Reads mail on a real server as a `MailSession`.

#include "mailstore/imap/mailbox_tree.h"
#include "tests/imap/imap_fixture.h"

namespace pelk {
namespace {

std::string request(const std::string& type, const std::string& body) {
    return "From: jane@x.org\nTo: bob@x.org\nContent-Type: multipart/mixed; boundary=b\n\n--b\n\nHi"
           "\n--b\nContent-Type: text/calendar" +
           type + "\n\n" + body + "\n--b--\n";
}

class ImapTest : public MailTest {
 protected:
    Dovecot dovecot;
};

TEST_F(ImapTest, countsWhatTheSameMaildirCounts) {
    const std::string first = "cur/1600000001.a.h:2,S";
    addMail(dovecot, first,
            "From: =?utf-8?q?J=C3=BCrgen?= <j@x.org>\nTo: a@x.org, b@y.org\n"
            "Cc: c@z.org\nMessage-ID: <1@x>\n\nHi\n");
    addMail(dovecot, "new/1600000002.b.h", "From: a@x.org\nReply-To: r@x.org\nTo: j@x.org\n\nHi\n");
    addMail(dovecot, "cur/1600000003.c.h:2,ST", "From: gone@x.org\nTo: j@x.org\n\nHi\n");
    const std::string calendar = "BEGIN:VCALENDAR\nMETHOD:REQUEST\nEND:VCALENDAR";
    addMail(dovecot, "cur/1600000004.d.h:2,S", request("", calendar));
    addMail(dovecot, "cur/1600000005.e.h:2,S", request("; method=REPLY", "x"));
    addMail(dovecot, "cur/1600000006.f.h:2,S", request("; method=PUBLISH", "x"));
    addMail(dovecot, "cur/1600000007.g.h:2,S",
            request("\nContent-Disposition: attachment", calendar));
    addMail(dovecot, "cur/1600000008.h.h:2,S",
            "From: d@x.org\nTo: j@x.org\nContent-Type: multipart/report; "
            "report-type=delivery-status; boundary=b\n\n--b\n\nNo\n--b--\n");
    addMail(dovecot, "cur/1600000009.i.h:2,S",
            "From: <j@x.org>\nTo: undisclosed:;\nBcc: k@x\n\n\n");
    addMail(dovecot, ".Lists.Entw&APw-rfe/cur/1600000001.a.h:2,S",
            "From: l@x.org\nTo: m@x.org\nMessage-ID: <1@x>\n\nHi\n");
    addMail(dovecot, ".Trash/cur/1600000001.a.h:2,S", "From: t@x.org\nTo: m@x.org\n\nHi\n");
    Counting disk;
    disk.scan(*openMailSession({dovecot.mail()}, {}));
    dovecot.start();
    Counting server;
    const ScanOutcome outcome = server.scan(dovecot.port);
    EXPECT_EQ(outcome.faults, 0) << outcome.firstFault;
    EXPECT_EQ(outcome.leftOut.size(), 1U);
    EXPECT_EQ(server.document(), disk.document());
    EXPECT_EQ(disk.database->contactCount(), 8U);
    EXPECT_TRUE(std::filesystem::exists(dovecot.mail() + "/" + first)) << "was marked";
    EXPECT_TRUE(std::filesystem::exists(dovecot.mail() + "/new/1600000002.b.h") ||
                std::filesystem::exists(dovecot.mail() + "/cur/1600000002.b.h:2,"));
}

TEST_F(ImapTest, listsFoldersByTheirNames) {
    for (const char* name : {".Sent", ".a\"b&- \\c", ".Gr&APYA3w-e.In&-Out", ".Weg damit", ".Bin"})
        addMail(dovecot, std::string(name) + "/cur/1600000001.a.h:2,S", message("x"));
    addMails(dovecot, 1, 2);
    dovecot.start();
    const std::string server = "imap://jane@127.0.0.1:" + std::to_string(dovecot.port);
    EXPECT_EQ(mailAt(server),
              "INBOX[1 2] Bin[x] Größe[](In&Out[x]) Sent[x] Weg damit[x] a\"b& \\c[x]");
    const ScanOutcome outcome = Counting().scan(dovecot.port);
    ASSERT_EQ(outcome.leftOut.size(), 1U) << "the server names its trash, so names do not count";
    EXPECT_EQ(outcome.leftOut[0].name, "Weg damit");

    const auto named = openAt(dovecot.port, "/Gr%C3%B6%C3%9Fe/In&Out")->folders()->next();
    EXPECT_EQ(named->name(), "In&Out");
    EXPECT_EQ(named->place(),
              openAt(dovecot.port)->folders()->next()->place() + "/Gr&APYA3w-e/In&-Out");
    EXPECT_EQ(messageOf([&] { openAt(dovecot.port, "/No/Such"); }),
              "The mail server has no folder No.");
}

TEST_F(ImapTest, saysOfListsAndSentMailWhatTheDiskSays) {
    addMail(dovecot, ".Sent/cur/1600000001.a.h:2,S",
            "From: j@x.org\nList-Post: <mailto:l@x.org>\nX-Mailing-List: m@x.org\n"
            "X-BeenThere: n@x.org\nList-Id: L <l.x.org>\nList-Unsubscribe: <https://x.org>\n"
            "Precedence: bulk\nAuto-Submitted: auto-generated\n\nHi\n");
    const auto sent = [](MailSession& session) {
        const auto folders = session.folders()->next()->folders();
        std::unique_ptr<MailFolder> folder = folders->next();
        while (folder && !folder->isSentMail())
            folder = folders->next();
        return folder ? folder->mailItem(1)->automation() : MailAutomation();
    };
    const MailAutomation onDisk = sent(*openMailSession({dovecot.mail()}, {}));
    dovecot.start();
    EXPECT_EQ(onDisk.lists.size(), 3U);
    EXPECT_EQ(sent(*openAt(dovecot.port)), onDisk);
}

TEST(ImapSession, knowsTheSentMailThatTheServerDeclares) {
    MailboxNode sent = *mailboxTree({{"Post", '/', {"Sent"}}, {"Other", '/', {}}},
                                    readImapAddress("imap://jane@127.0.0.1"))
                            ->folders.back();
    EXPECT_TRUE(sent.holdsSent && sent.name == "Post");
}

TEST_F(ImapTest, asksASecondTimeForNewMessagesOnly) {
    addMails(dovecot, 1, 20);
    dovecot.start();
    Proxy proxy(dovecot.port);
    Counting counting;
    const auto asked = [&proxy] {
        std::string all;
        for (const std::string& command : proxy.commands()) {
            EXPECT_EQ(command.find("SELECT"), std::string::npos);
            if (command.starts_with("UID FETCH") || command.starts_with("FETCH"))
                all += command.substr(0, command.find('(')) + ";";
        }
        return all;
    };
    EXPECT_EQ(counting.scan(proxy.port()).mails, 20);
    EXPECT_EQ(asked(), "UID FETCH 1:20 ;");
    addMails(dovecot, 21, 22);
    // A scan does not count a message whose arrival time is before the last scan.
    addMail(dovecot, "new/1600000030.x.h", message("old"), 1'600'000'000);
    for (const char* mail : {"21", "22"})
        addMail(dovecot, std::string("new/16000000") + mail + ".x.h",
                "From: q" + std::string(mail) + "@x.org\nTo: bob@x.org\n\nText\n",
                std::time(nullptr) + 1);
    ::sleep(2);
    EXPECT_EQ(counting.scan(proxy.port()).mails, 2);
    EXPECT_EQ(asked(), "FETCH 1:16 ;UID FETCH 21:23 ;");
    EXPECT_EQ(counting.scan(proxy.port()).mails, 0);
    EXPECT_EQ(asked(), "FETCH 1:16 ;UID FETCH 21:23 ;") << "these are too recent for the mark";

    ScanOptions all;
    all.since = "2000-01-01";
    EXPECT_EQ(counting.scan(*openAt(proxy.port()), all).mails, 21);
    EXPECT_EQ(asked(), "UID FETCH 1:23 ;");
}

TEST_F(ImapTest, goesOnWhereAConnectionWasLost) {
    addMails(dovecot, 1, 30);
    dovecot.start();
    Counting whole;
    whole.scan(dovecot.port);
    const std::string expected = whole.document();
    // The server sends some twenty lines until the folder is open, and fourteen per message.
    for (int lines = 1; lines < 200; lines += lines < 50 ? 3 : 37) {
        Proxy proxy(dovecot.port, lines);
        Counting cut;
        ScanOutcome outcome;
        const std::string error = messageOf([&] { outcome = cut.scan(proxy.port()); });
        EXPECT_TRUE(lines < 50 || (error.empty() && outcome.faults == 0))
            << lines << error << outcome.firstFault;
        const std::string said = error + outcome.firstFault;
        EXPECT_TRUE(said.empty() || said.find("127.0.0.1") != std::string::npos) << said;
        cut.scan(dovecot.port);
        EXPECT_EQ(cut.document(), expected) << lines;
    }
}

TEST_F(ImapTest, trustsNobodyWhoDoesNotProveWhoHeIs) {
    addMails(dovecot, 1, 1);
    dovecot.start(Dovecot::Tls::Yes);
    const std::string tls = "imaps://jane@127.0.0.1:" + std::to_string(dovecot.tlsPort);
    const std::string other = "imaps://jane@127.0.0.2:" + std::to_string(dovecot.tlsPort);
    const std::string upgraded = "imap://jane@127.0.0.1:" + std::to_string(dovecot.port);
    const std::string unproved =
        "The mail server 127.0.0.1 does not prove who it is: self-signed "
        "certificate.";
    EXPECT_EQ(mailAt(tls), unproved);
    EXPECT_EQ(mailAt(upgraded), unproved);
    ::setenv("SSL_CERT_FILE", dovecot.certificate().c_str(), 1);
    EXPECT_EQ(mailAt(tls), "INBOX[1]");
    EXPECT_EQ(mailAt(upgraded), "INBOX[1]");
    EXPECT_EQ(mailAt(other),
              "The mail server 127.0.0.2 does not prove who it is: IP address "
              "mismatch.");
    EXPECT_EQ(mailAt("imaps://jane@localhost:" + std::to_string(dovecot.tlsPort)),
              "The mail server localhost does not prove who it is: hostname mismatch.");
    const std::string refused = mailAt(tls, "wrong");
    EXPECT_TRUE(refused.starts_with("The mail server 127.0.0.1 refuses to let jane in: "))
        << refused;
    EXPECT_EQ(refused.find("wrong"), std::string::npos);
    EXPECT_EQ(mailAt("imaps://jane@127.0.0.1:" + std::to_string(dovecot.port)).substr(0, 63),
              "The connection to the mail server 127.0.0.1 cannot be encrypted");
}

}  // namespace
}  // namespace pelk
