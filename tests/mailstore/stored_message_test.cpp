// Reads single messages as a scan does.

#include <chrono>
#include <vector>

#include "platform/error.h"
#include "tests/mailstore/mail_fixture.h"

namespace pelk {
namespace {

class StoredMessageTest : public MailTest {
 protected:
    std::shared_ptr<MailItem> item(const std::string& content) {
        files.write("one.eml", content);
        return openFolder("one.eml")->mailItem(1);
    }

    std::string peopleOf(const std::string& content) {
        const std::shared_ptr<MailItem> mail = item(content);
        const auto sender = mail->replyRecipient();
        std::string text = sender ? sender->address + ":" : ":";
        for (int i = 1; i <= mail->recipientCount(); ++i)
            text += " " + mail->recipient(i).address;
        return text;
    }

    /// Returns the creation time of the message in a file that was last changed at the start of
    /// `year`. Sets `isAhead_`.
    LocalTime timeOf(const std::string& path, const std::string& content, int year) {
        const std::string file = files.write(path, content);
        const std::chrono::sys_seconds fileTime =
            std::chrono::sys_days(std::chrono::year(year) / 1 / 1);
        std::filesystem::last_write_time(file, std::chrono::file_clock::from_sys(fileTime));
        const auto mail = openFolder(path.substr(0, path.find('/')))->mailItem(1);
        std::filesystem::remove(file);
        isAhead_ = mail->isDatedAhead();
        return mail->creationTime();
    }

    bool isAhead_ = false;

    /// Asks for a message file and for an mbox, which decide in different ways.
    bool isMail(const std::string& content) {
        files.write("one.eml", content);
        files.write("box", "From a Tue Jan  2 03:04:05 2001\n" + content);
        const bool inFile = treeOf("one.eml") == "one.eml[]";
        EXPECT_EQ(treeOf("box") == "box[]", inFile) << content;
        return inFile;
    }
};

TEST_F(StoredMessageTest, namesSenderAndRecipients) {
    EXPECT_EQ(peopleOf("Cc: c@x\nto: a@x,\r\n\tb@x\r\nFROM: s@x\nBcc: d@x\nTO : a@x\nReply-To:\n\n"
                       "To: body@x\n"),
              "s@x: a@x b@x a@x c@x d@x");
    EXPECT_EQ(peopleOf("Sender: s@x\nTo: a@x\n"), "s@x: a@x");
    EXPECT_EQ(peopleOf("Sender: s@x\nFrom: f@x\n"), "f@x:");
    EXPECT_EQ(peopleOf("From: s@x\nReply-To: <>\nReply-To: r@x, q@x\n"), "r@x:");
    EXPECT_EQ(peopleOf("To: a@x\nno field\n b@x\nFrom: nobody here\n"), ": a@x");
    EXPECT_EQ(peopleOf("\nTo: a@x"), ":");
    EXPECT_THROW(item("To: a@x\n")->recipient(2), Error);
    EXPECT_THROW(item("To: a@x\n")->recipient(0), Error);
}

TEST_F(StoredMessageTest, saysWhatListsAndProgramsWrote) {
    const auto automation = [&](const std::string& fields) {
        return item("From: s@x\n" + fields + "\nList-Post: <mailto:body@x>\n")->automation();
    };
    EXPECT_EQ(automation("Auto-Reply: x\n"), MailAutomation());
    EXPECT_EQ(automation("List-Post: <https://x/post>,\n <MAILTO:Users@Lists.X?subject=hi>\n"
                         "X-Mailing-List: <old@x>\nX-BeenThere: been@x\nX-BeenThere: nothing\n"
                         "LIST-ID: \"All <users>\" \n\t<users.lists.x>\n"
                         "List-Unsubscribe: <https://x/leave>\nPrecedence: LIST (all)\n"
                         "Auto-Submitted: Auto-Generated; owner=a\n"),
              (MailAutomation{{{"List-Post", "Users@Lists.X"},
                               {"X-Mailing-List", "old@x"},
                               {"X-BeenThere", "been@x"}},
                              "users.lists.x",
                              true,
                              "list",
                              "auto-generated"}));
    EXPECT_EQ(automation("List-Post: <mailto:" + std::string(500, 'l') + "@x>\n"), MailAutomation())
        << "an address that is cut before its host is none";
    EXPECT_EQ(automation("List-Post: NO\nList-Post: <mailto:>\nList-Id: bare.x\n"),
              (MailAutomation{{}, "bare.x", false, {}, {}}));
}

TEST_F(StoredMessageTest, readsLongHeadersUpToALimit) {
    // Some headers end exactly where the first read ends.
    std::vector<std::size_t> sizes = {60'000, 900'000, 3'000'000};
    for (std::size_t size = 8'130; size < 8'185; ++size)
        sizes.push_back(size);
    for (const std::size_t size : sizes) {
        const std::string header =
            "From: s@x\nX: " + std::string(size, 'x') + "\nTo: a@x\nTo: b@x\r\n";
        EXPECT_EQ(peopleOf(header + "Cc: c@x\r\n\r\nTo: body@x\n"),
                  size < 1'000'000 ? "s@x: a@x b@x c@x" : "s@x:");
    }
}

TEST_F(StoredMessageTest, tellsWhenItCame) {
    const std::string date = "Date: Tue, 2 Jan 2001 03:04:05 -0100\n\n";
    const std::string received =
        "Received: by a; 5 May 1999 10:00:00 +0000;\n Tue, 2 Jan 2001 09:00:00 +0100 (CET)\n"
        "Received: by b; Mon, 1 Jan 2001 01:00:00 +0100\n";
    const LocalTime dated{2001, 1, 2, 5, 4, 5};
    const LocalTime came{2001, 1, 2, 9, 0, 0};
    const LocalTime changed{2005, 1, 1, 1, 0, 0};
    EXPECT_EQ(timeOf("a.eml", date, 2005), dated);
    EXPECT_EQ(timeOf("a.eml", received + date, 2005), came);
    EXPECT_EQ(timeOf("a.eml", "Received: by a\n" + date, 2005), dated);
    for (const int year : {1945, 1970}) {
        EXPECT_EQ(timeOf("box", "From -\n" + date, year), dated) << "no time of a file";
        EXPECT_FALSE(isAhead_);
    }
    EXPECT_EQ(timeOf("a.eml", "\n", 1945), LocalTime{});
    EXPECT_EQ(timeOf("a.eml", "\n", 2005), changed);
    EXPECT_EQ(timeOf("md/cur/1000000000.x:2,S", received, 2005),
              (LocalTime{2001, 9, 9, 3, 46, 40}));
    for (const char* const name :
         {"md/cur/name", "md/cur/1000000000", "md/cur/a1000000000.x", "md/cur/-5.x",
          "md/cur/999999999999.x", "md/cur/99999999999999999999999.x"})
        EXPECT_EQ(timeOf(name, date, 2005), dated) << name;
    EXPECT_EQ(timeOf("box", "From -\n" + received + date, 2005), came);
    EXPECT_EQ(timeOf("box", "From -\nDate: soon\n", 2005), changed);
    EXPECT_EQ(timeOf("box", "From -\nDate: Fri, 31 Dec 9999 23:30:00 +0000\n", 2005), changed)
        << "the year 10000";
}

TEST_F(StoredMessageTest, tellsWhenItWasSent) {
    EXPECT_EQ(item("Received: by a; 5 May 1999 10:00:00 +0000\n"
                   "Date: Tue, 2 Jan 2001 03:04:05 -0100\n\n")
                  ->sentTime(),
              (LocalTime{2001, 1, 2, 5, 4, 5}));
    EXPECT_EQ(item("Date: soon\n\n")->sentTime(), std::nullopt);
    EXPECT_EQ(item("From: s@x\n\n")->sentTime(), std::nullopt);
}

TEST_F(StoredMessageTest, takesTheLineBetweenMessagesForTheUsersOwnClock) {
    const std::string written = "From - Sun Jul  1 10:00:00 2001\n";
    const std::string zoned = "From - Sun Jul  1 10:00:00 2001 +0000\n";
    EXPECT_EQ(timeOf("box", written, 2005), (LocalTime{2001, 7, 1, 10, 0, 0}));
    EXPECT_EQ(timeOf("box", zoned, 2005), (LocalTime{2001, 7, 1, 12, 0, 0}));
    EXPECT_EQ(timeOf("box", "From - Sun Mar 25 02:30:00 2001\n", 2005),
              (LocalTime{2001, 3, 25, 2, 30, 0}))
        << "an hour that the clock left out";
    ::setenv("TZ", "EST5EDT,M3.2.0,M11.1.0", 1);
    ::tzset();
    EXPECT_EQ(timeOf("box", written, 2005), (LocalTime{2001, 7, 1, 10, 0, 0}));
    EXPECT_EQ(timeOf("box", zoned, 2005), (LocalTime{2001, 7, 1, 6, 0, 0}));
}

TEST_F(StoredMessageTest, cameBeforeItsFileWasChangedLast) {
    const std::string ahead =
        "From - Fri Jan  1 10:00:00 2038\nDate: Tue, 7 Jun 2001 01:00:00 +0000\n";
    const LocalTime changed{2005, 1, 1, 1, 0, 0};
    for (const auto& [path, isAhead] : std::vector<std::pair<const char*, bool>>{
             {"box", true}, {"md/cur/2145949200.x:2,S", false}}) {
        EXPECT_EQ(timeOf(path, ahead, 2005), changed) << path;
        EXPECT_EQ(isAhead_, isAhead) << path;
    }
    EXPECT_EQ(timeOf("a.eml", "Date: Fri, 1 Jan 2038 10:00:00 +0000\n", 2005), changed);
    EXPECT_FALSE(isAhead_);
    EXPECT_EQ(timeOf("box", "From -\n\n", 2005), changed);
    EXPECT_TRUE(isAhead_) << "a message without a time";
    timeOf("box", "From - Sat Jan  1 01:00:00 2005\n", 2005);
    EXPECT_FALSE(isAhead_);
    for (const auto& [path, content] : std::vector<std::pair<const char*, const char*>>{
             {"box", "From - Wed Jan  1 10:00:00 2200\n"},
             {"a.eml", "Date: 1 Jan 2200 10:00:00 +0000\n\n"},
             {"a.eml", "\n"}}) {
        const LocalTime time = timeOf(path, content, 2199);
        EXPECT_GT(time, (LocalTime{2020, 1, 1, 0, 0, 0})) << content;
        EXPECT_LT(time, (LocalTime{2199, 1, 1, 0, 0, 0})) << content;
        EXPECT_TRUE(isAhead_) << "a file from the future: " << content;
    }
}

TEST_F(StoredMessageTest, knowsCopiesOfItself) {
    const auto idOf = [&](const std::string& header) { return item(header)->messageId(); };
    EXPECT_EQ(idOf("Message-Id:\n < a@b >\nMessage-ID: <c@d>\n"), "a@b");
    EXPECT_EQ(idOf("Message-ID: a@b \n"), "a@b");
    EXPECT_EQ(idOf("Message-ID: <>\nFrom: a@x\n"), "");
    EXPECT_EQ(idOf("Message-ID: <" + std::string(5000, 'x') + ">\n").size(), 998U);
    const auto printOf = [&](const std::string& header) { return item(header)->fingerprint(); };
    const std::string letter = "From: a@x\nTo: b@x\nDate: 1 Jan 2001 00:00 +0000\n";
    const std::uint64_t print = printOf(letter);
    EXPECT_EQ(print, printOf("From x\nX-Mozilla-Status: 0001\nStatus: RO\nX-UID: 7\n" + letter +
                             "X-Gmail-Labels: a\n\nFrom: text@x\n"));
    EXPECT_EQ(printOf("Message-ID: <a@b>\n" + letter), 0xE6AC991904E00A72ULL) << "kept on disk";
    EXPECT_EQ(printOf("Message-ID: <a@b>\n"), printOf("Message-Id: <a@b>\n" + letter));
    for (const char* const other : {"From: c@x\n", "\n", "Subject: s\n"})
        EXPECT_NE(printOf(other + letter), print) << other;
    EXPECT_NE(printOf("\n"), 0U);
}

TEST_F(StoredMessageTest, knowsTheFolderOfItsLabels) {
    const auto folderOf = [&](const std::string& labels) {
        const auto folder = item("X-Gmail-Labels: " + labels + "\n\n")->labelledFolder();
        return folder ? static_cast<int>(*folder) : -1;
    };
    const int deleted = static_cast<int>(DefaultFolder::DeletedItems);
    const int junk = static_cast<int>(DefaultFolder::Junk);
    const int drafts = static_cast<int>(DefaultFolder::Drafts);
    for (const char* const labels :
         {"Trash", "Opened, TRASH", "Spam,Bin", "Bin,Spam", "=?UTF-8?Q?Papierkorb,Ge=C3=B6ffnet?=",
          "=?UTF-8?B?44K044Of566x?=", "=?UTF-8?B?0JrQvtGA0LfQuNC90LA=?=,\n =?UTF-8?Q?a?=",
          "\"a, b\",\n Corbeille", "Thùng Rác", "Çöp kutusu"})
        EXPECT_EQ(folderOf(labels), deleted) << labels;
    for (const char* const labels : {"Unread,Spam", "=?UTF-8?B?7Iqk7Yy47ZWo?=", "Inbox,Skräppost"})
        EXPECT_EQ(folderOf(labels), junk) << labels;
    for (const char* const labels : {"Drafts", "=?UTF-8?Q?Entw=C3=BCrfe?=", "Черновики,Важное"})
        EXPECT_EQ(folderOf(labels), drafts) << labels;
    for (const char* const labels : {"", "Inbox", "\"no, Trash\"", "Trash/Old", "Outbox"})
        EXPECT_EQ(folderOf(labels), -1) << labels;
    EXPECT_EQ(item("From: a@x\n\nX-Gmail-Labels: Trash\n")->labelledFolder(), std::nullopt);
}

TEST_F(StoredMessageTest, tellsReportsAndMeetingsFromMail) {
    const std::string report = "Content-Type: multipart/report; report-type=";
    EXPECT_THROW(item(report + "delivery-status\n\n"), NotAMailItem);
    EXPECT_FALSE(isMail(report + "\"Delivery-Status\"; boundary=b\n\n"));
    EXPECT_FALSE(
        isMail("content-type: Multipart/ Report;\n report-type=disposition-notification\n"));
    EXPECT_TRUE(isMail(report + "feedback-report\n\n"));
    EXPECT_TRUE(isMail("Content-Type: text/plain\n\n" + report + "delivery-status\n"));

    const std::string calendar = "Content-Type: text/Calendar";
    const std::string request = calendar + "; method=Request\n\n";
    const std::string begin = calendar + "\n\nBEGIN:VCALENDAR\r\n";
    EXPECT_FALSE(isMail(request));
    EXPECT_TRUE(isMail(calendar + "; method=publish\n\nMETHOD:REQUEST\n"));
    EXPECT_TRUE(isMail(begin + "X-METHOD:REQUEST\n"));
    EXPECT_TRUE(isMail(begin + "Method:Publish\r\n"));
    EXPECT_FALSE(isMail(begin + "Method:Reply\r\n"));
    EXPECT_FALSE(isMail("Content-Transfer-Encoding: base64\n" + calendar +
                        "\n\nQkVHSU46VkNBTEVOREFSCk1FVEhP\nRDpSRVFVRVNUCg==\n"));
    EXPECT_TRUE(isMail("Content-Disposition: ATTACHMENT; filename=a.ics\n" + request));

    const std::string mixed = "Content-Type: multipart/mixed; boundary=\"o o\"\n\n--none\n";
    const std::string text = mixed + "--o o\n\ntext\n";
    const std::string inner = "Content-Type: multipart/alternative; boundary=o\n\n";
    EXPECT_FALSE(isMail(text + "--o o \r\n" + request));
    EXPECT_FALSE(isMail(mixed + "--o o\n" + inner + "--o\n" + begin + "METHOD:CANCEL\n--o--\n"));
    EXPECT_FALSE(isMail(mixed + "--o o\n" + inner + "--o\n\ntext\n--o o\n" + request));
    EXPECT_FALSE(isMail(mixed + "--o o\n" + calendar + "; method=REQUEST\n--o o--\n"));
    // The request is in a preamble or epilogue, after an invalid boundary, or in an attached
    // message.
    EXPECT_TRUE(isMail(mixed + request + "--o o\n\ntext\n--o o--\n" + request));
    EXPECT_TRUE(isMail(text + "--o ox\n" + request));
    EXPECT_TRUE(isMail(mixed + "--o o\n" + inner + "--o--\n--o\n" + request));
    EXPECT_TRUE(
        isMail(mixed + "--o o\nContent-Type: message/rfc822\n\n" + inner + "--o\n" + request));
    EXPECT_TRUE(isMail(mixed + "--o o\n" + begin + "--o o\n\nMETHOD:REQUEST\n"));
    EXPECT_TRUE(isMail("Content-Type: multipart/mixed\n\n--\n" + request));
}

// Without a limit to nesting, the last message takes hours.
TEST_F(StoredMessageTest, looksForMeetingsInLargeAndDeepMessages) {
    const std::string mixed = "Content-Type: multipart/mixed; boundary=";
    const std::string request = "\nContent-Type: text/calendar; method=REQUEST\n\n";
    for (std::size_t size = 65'470; size < 65'540; ++size)
        ASSERT_FALSE(isMail(mixed + "o\n\n" + std::string(size, 'x') + "\n--o" + request)) << size;
    EXPECT_FALSE(isMail(mixed + "o\n\n" + std::string(300'000, '-') + "\n--o" + request));
    const auto nested = [&](int depth) {
        std::string text = mixed + "0\n\n--0";
        for (int i = 1; i <= depth; ++i)
            text += "\n" + mixed + std::to_string(i) + "\n\n--" + std::to_string(i);
        return text + request;
    };
    EXPECT_FALSE(isMail(nested(50)));
    EXPECT_TRUE(isMail(nested(100'000)));
}

}  // namespace
}  // namespace pelk
