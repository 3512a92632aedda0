// E-mails as the scan sees them.

#include <chrono>
#include <filesystem>
#include <vector>

#include "platform/error.h"
#include "tests/mail/mail_fixture.h"

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

    bool isMail(const std::string& content) {
        files.write("one.eml", content);
        // The same message as an mbox, where most messages are told to be e-mails at first sight.
        files.write("box", "From a Tue Jan  2 03:04:05 2001\n" + content);
        const ItemKind kind = dynamic_cast<StoredFolder&>(*openFolder("box")).summary(1).kind;
        try {
            openFolder("one.eml")->mailItem(1);
            EXPECT_EQ(kind, ItemKind::Mail) << content;
            return true;
        } catch (const Error&) {
            EXPECT_NE(kind, ItemKind::Mail) << content;
            return false;
        }
    }
};

TEST_F(StoredMessageTest, namesSenderAndRecipients) {
    EXPECT_EQ(peopleOf("Cc: c@x\nto: a@x,\r\n\tb@x\r\nFROM: s@x\nBcc: d@x\nTO : a@x\nReply-To:\n\n"
                       "To: body@x\n"),
              "s@x: a@x b@x a@x c@x d@x");
    EXPECT_EQ(peopleOf("From: s@x\nReply-To: <>\nReply-To: r@x, q@x\n"), "r@x:");
    EXPECT_EQ(peopleOf("To: a@x\nno field\n b@x\nFrom: nobody here\n"), ": a@x");
    EXPECT_EQ(peopleOf("\nTo: a@x\n"), ":");
    EXPECT_EQ(peopleOf("To"), ":");
    EXPECT_THROW(item("To: a@x\n")->recipient(2), Error);
    EXPECT_THROW(item("To: a@x\n")->recipient(0), Error);
}

TEST_F(StoredMessageTest, readsLongHeadersUpToALimit) {
    // Some of them end right where the first read does.
    std::vector<std::size_t> sizes = {60'000, 900'000, 3'000'000};
    for (std::size_t size = 7'260; size < 7'290; ++size)
        sizes.push_back(size);
    for (const std::size_t size : sizes) {
        std::string header = "X: " + std::string(size, 'x') + "\n";
        for (int i = 0; i < 100; ++i)
            header += "To: a@x\r\n";
        const std::shared_ptr<MailItem> mail = item("From: s@x\n" + header + "\r\nTo: body@x\n");
        EXPECT_EQ(mail->replyRecipient()->address, "s@x");
        EXPECT_EQ(mail->recipientCount(), size < 1'000'000 ? 100 : 0) << size;
    }
}

TEST_F(StoredMessageTest, tellsWhenItCame) {
    const auto fileTime = std::chrono::sys_days(std::chrono::year(2005) / 6 / 7);
    const auto creationTime = [&](const std::string& path, const std::string& content,
                                  std::int64_t seconds) {
        const std::string file = files.write("store/" + path, content);
        std::filesystem::last_write_time(
            file, std::chrono::file_clock::from_sys(fileTime + std::chrono::seconds(seconds)));
        const LocalTime time = openFolder(path.starts_with("cur") ? "store" : "store/" + path)
                                   ->mailItem(1)
                                   ->creationTime();
        std::filesystem::remove(file);
        return time;
    };
    const std::string date = "Date: Tue, 2 Jan 2001 03:04:05 -0100\n\n";
    const LocalTime dated{2001, 1, 2, 5, 4, 5};
    const LocalTime changed{2005, 6, 7, 2, 0, 0};
    EXPECT_EQ(creationTime("a.eml", date, 0), changed);
    EXPECT_EQ(creationTime("a.eml", date, -2'000'000'000), dated);
    EXPECT_EQ(creationTime("a.eml", "\n", -2'000'000'000), LocalTime{});
    EXPECT_EQ(creationTime("cur/1000000000.x:2,S", date, 0), (LocalTime{2001, 9, 9, 3, 46, 40}));
    EXPECT_EQ(creationTime("cur/name", date, 0), changed);
    EXPECT_EQ(creationTime("cur/999999999999.x", date, 0), dated);
    EXPECT_EQ(creationTime("box", "From - Sun Jul  1 10:00:00 2001\n" + date, 0),
              (LocalTime{2001, 7, 1, 12, 0, 0}));
    EXPECT_EQ(creationTime("box", "From -\n" + date, 0), dated);
    EXPECT_EQ(creationTime("box", "From -\nDate: Tue, 2 Jan 1951 03:04:05\n", 0), changed);
    EXPECT_EQ(creationTime("box", "From -\nDate: soon\n", 0), changed);
}

TEST_F(StoredMessageTest, tellsReportsFromMail) {
    EXPECT_FALSE(
        isMail("Content-Type: multipart/report; report-type=\"Delivery-Status\"; boundary=b\n\n"));
    EXPECT_FALSE(
        isMail("content-type: Multipart/ Report;\n report-type=disposition-notification\n\n"));
    EXPECT_TRUE(isMail("Content-Type: multipart/report; report-type=feedback-report\n\n"));
    EXPECT_TRUE(
        isMail("Content-Type: text/plain\n\nContent-Type: multipart/report;"
               " report-type=delivery-status\n"));
}

TEST_F(StoredMessageTest, tellsMeetingsFromMail) {
    const std::string calendar = "Content-Type: text/Calendar";
    const std::string request = calendar + "; method=Request\n\nBEGIN:VCALENDAR\n";
    EXPECT_FALSE(isMail(request));
    EXPECT_TRUE(isMail(calendar + "; method=publish\n\nMETHOD:REQUEST\n"));
    EXPECT_TRUE(isMail(calendar + "\n\nBEGIN:VCALENDAR\nX-METHOD:REQUEST\n"));
    EXPECT_TRUE(isMail(calendar + "\n\nBEGIN:VCALENDAR\r\nMethod:Publish\r\n"));
    EXPECT_FALSE(isMail(calendar + "\n\nBEGIN:VCALENDAR\r\nMethod:Reply\r\n"));
    EXPECT_FALSE(isMail("Content-Transfer-Encoding: base64\n" + calendar +
                        "\n\nQkVHSU46VkNBTEVOREFSCk1FVEhP\nRDpSRVFVRVNUCg==\n"));
    EXPECT_TRUE(isMail("Content-Disposition: ATTACHMENT; filename=a.ics\n" + request));

    const std::string mixed = "Content-Type: multipart/mixed; boundary=\"o o\"\n\n--none\n";
    const std::string inner = "Content-Type: multipart/alternative; boundary=o\n\n";
    EXPECT_FALSE(isMail(mixed + "--o o\n\ntext\n--o o \r\n" + request));
    EXPECT_FALSE(isMail(mixed + "--o o\n" + inner + "--o\n\ntext\n--o\n" + calendar +
                        "\n\nMETHOD:CANCEL\n--o--\n--o o--\n"));
    EXPECT_FALSE(isMail(mixed + "--o o\n" + inner + "--o\n\ntext\n--o o\n" + request));
    EXPECT_FALSE(isMail(mixed + "--o o\nContent-Type: text/calendar; method=REQUEST\n--o o--\n"));
    // In a preamble or epilogue, behind a boundary that is none, or in an attached message.
    EXPECT_TRUE(isMail(mixed + request + "--o o\n\ntext\n--o o--\n" + request));
    EXPECT_TRUE(isMail(mixed + "--o o\n\ntext\n--o ox\n" + request));
    EXPECT_TRUE(isMail(mixed + "--o o\n" + inner + "--o--\n--o\n" + request));
    EXPECT_TRUE(
        isMail(mixed + "--o o\nContent-Type: message/rfc822\n\n" + inner + "--o\n" + request));
    EXPECT_TRUE(
        isMail(mixed + "--o o\n" + calendar + "\n\nBEGIN:VCALENDAR\n--o o\n\nMETHOD:REQUEST\n"));
    EXPECT_TRUE(isMail("Content-Type: multipart/mixed\n\n--\n" + request));
}

TEST_F(StoredMessageTest, looksForMeetingsInLargeMessages) {
    const std::string begin = "Content-Type: multipart/mixed; boundary=o\n\n";
    const std::string end = "\n--o\nContent-Type: text/calendar; method=REQUEST\n\n";
    for (std::size_t size = 65'470; size < 65'540; ++size)
        ASSERT_FALSE(isMail(begin + std::string(size, 'x') + end)) << size;
    EXPECT_FALSE(isMail(begin + std::string(300'000, '-') + end));
}

// Without a limit to nesting the second would take hours.
TEST_F(StoredMessageTest, looksIntoNestedPartsUpToALimit) {
    const auto nested = [](int depth) {
        std::string text = "Content-Type: multipart/mixed; boundary=0\n\n";
        for (int i = 0; i < depth; ++i)
            text += "--" + std::to_string(i) +
                    "\nContent-Type: multipart/mixed; boundary=" + std::to_string(i + 1) + "\n\n";
        return text + "--" + std::to_string(depth) +
               "\nContent-Type: text/calendar; method=REQUEST\n\n";
    };
    EXPECT_FALSE(isMail(nested(50)));
    EXPECT_TRUE(isMail(nested(100'000)));
}

}  // namespace
}  // namespace pelk
