
#include "mailstore/message_time.h"
#include "platform/error.h"
#include "tests/mailstore/mail_fixture.h"

namespace pelk {
namespace {

class MboxTest : public MailTest {};

TEST_F(MboxTest, beginsAMessageBehindAnEmptyLine) {
    files.write("a", mbox("1") +
                         "From x\r\nSubject: 2\r\n\r\nText\r\nFrom x\r\n\r\nFrom y\nSubject: 3\n\n"
                         ">From x\n \nFrom x\n\nfrom x\n\n From x\n\nFrom\n\nFromm");
    EXPECT_EQ(treeOf("a"), "a[1 2 3]");
    files.write("b", "From x\n\nFrom x\n\nFrom ");
    EXPECT_EQ(openFolder("b")->itemCount(), 3);
    files.write("c", "");
    EXPECT_EQ(treeOf("c"), "c[]");
}

// The index reads one megabyte at a time. A separator, or the type of a meeting, may cross the
// border of two parts.
TEST_F(MboxTest, findsEveryMessageOfALargeFile) {
    const std::string request =
        "\r\n\r\nFrom x\r\nSubject: m\r\nContent-Type: text/calendar; method=REPLY\r\n\r\n";
    for (std::size_t shift = 0; shift <= 70; ++shift) {
        std::string text = mbox("1");
        text.resize((1 << 20) - shift, 'x');
        files.write("box", text + request + mbox("2") + std::string(2000, 'x'));
        ASSERT_EQ(treeOf("box"), "box[1 m* 2]") << shift;
    }
}

TEST_F(MboxTest, handsOutItemsThatOutliveTheFolderButNotTheMessage) {
    const std::string path = files.write("box", mbox("1") + mbox("2"));
    const auto folder = openFolder("box");
    const auto item = folder->mailItem(2);
    const auto other = openFolder("box")->mailItem(2);
    EXPECT_THROW(folder->mailItem(0), Error);
    EXPECT_THROW(folder->mailItem(3), Error);
    std::filesystem::resize_file(path, 50);
    EXPECT_THROW(item->recipientCount(), Error);
    files.write("box", "Changed " + mbox("1") + mbox("2"));
    EXPECT_THROW(item->recipientCount(), Error);
    files.write("box", mbox("1") + mbox("2") + mbox("3"));
    EXPECT_EQ(folder->itemCount(), 2);
    EXPECT_EQ(item->recipientCount(), 1);
    std::filesystem::remove(path);
    EXPECT_EQ(other->creationTime(), (LocalTime{2001, 1, 2, 3, 4, 5}));
    EXPECT_EQ(other->replyRecipient()->name, "Jane");
    EXPECT_EQ(other->recipient(1).address, "bob@x.org");
}

// An expunged message may be on either side of the border of two parts. Its text must not count for
// its neighbours: its first part would make a meeting of the message before it.
TEST_F(MboxTest, leavesOutWhatIsExpunged) {
    const auto withStatus = [](const std::string& status, const std::string& rest) {
        return "From - Tue Jan  2 03:04:05 2001\nX-Account-Key: a\nX-Mozilla-Status: " + status +
               "\n" + rest + "\n";
    };
    const std::string gone =
        withStatus("0009", "\n--o\nContent-Type: text/calendar; method=REPLY\n\n") +
        withStatus("8008", message("y"));
    const std::string left = withStatus(
        "8017", "Content-Type: multipart/mixed; boundary=o\n" + message("2") + "a/calendar");
    for (std::size_t shift = 0; shift <= 130; shift += 13) {
        std::string text = mbox("1");
        text.resize((1 << 20) - shift, 'x');
        files.write("box", text + "\n\n" + gone + left + "\n" + gone + mbox("3") +
                               "X-Mozilla-Status: 0008\n\n" + gone);
        const auto folder = openFolder("box");
        ASSERT_EQ(folder->itemCount(), 3) << shift;
        EXPECT_EQ(folder->mailItem(2)->recipientCount(), 1);
        EXPECT_EQ(treeOf("box"), "box[1 2 3]");
    }
    files.write("all", gone);
    EXPECT_EQ(openFolder("all")->itemCount(), 0);
}

// As the export of Gmail (Google Takeout) writes it.
TEST_F(MboxTest, showsEachMessageUnderOneOfItsLabels) {
    const auto labelled = [](const std::string& labels, const std::string& subject) {
        return "From 1@xxx Tue Jan  2 03:04:05 +0000 2001\nX-GM-THRID: 1\n" +
               (labels.empty() ? "" : "X-Gmail-Labels: " + labels + "\n") + message(subject) + "\n";
    };
    const std::string all =
        labelled("Archived,Important,\"Work, new\"", "1") +
        labelled("Category Updates,Inbox", "2") + labelled("Inbox,Trash,Spam", "3") +
        labelled("=?UTF-8?Q?Entw=C3=BCrfe,Inbox?=", "4") + labelled("Opened,Archived", "5") +
        labelled("", "6") + labelled("Outbox", "7") +
        labelled("=?UTF-8?Q?Entw=C3=BCrfe?=,\n Unread", "8") + labelled("Inbox", "9");
    files.write("All.mbox", all);
    const std::string tree =
        "All.mbox[6](Entwürfe[4 8] Inbox[2 9] Opened[5] Outbox[7] Trash[3] Work, new[1])";
    EXPECT_EQ(treeOf("All.mbox"), tree);
    files.write("other/box", mbox("1"));
    const auto session = openMailSession({files.path() + "/All.mbox", files.path() + "/other"}, {});
    std::string leftOut;
    const auto labels = session->folders()->next()->folders();
    while (const auto label = labels->next())
        for (const DefaultFolder kind : session->leftOutFolders())
            leftOut += session->isDefaultFolder(*label, kind) ? label->name() + " " : "";
    EXPECT_EQ(leftOut, "Entwürfe Trash ");
}

TEST_F(MboxTest, readsTheTimeInTheLineBetweenMessages) {
    constexpr std::int64_t kMoment = 978404645;  // 2001-01-02 03:04:05
    const auto check = [](const NotedTime& time, const std::vector<const char*>& lines) {
        for (const char* const line : lines)
            EXPECT_EQ(fromLineTime(line), time) << line;
    };
    check({kMoment, true},
          {"From jane@x.org Tue Jan  2 03:04:05 2001", "From - Tue Jan 02 03:04:05 2001\r",
           "From \"jane doe 12:30\"@x Tue Jan  2 03:04:05 2001", "From Tue Jan  2 03:04:05 2001",
           "From a@b Tue JAN  2 03:04:05 XYZ 2001 remote from host",
           "From a@b Tue Jan  2 03:04:05 01"});
    check({kMoment, false},
          {"From a@b Tue Jan  2 04:04:05 +0100 2001", "From a@b Tue Jan  2 02:04:05 2001 -0100",
           "From a@b Tue Jan  2 04:04:05 CET 2001", "From a@b Tue Jan  2 03:04:05 UTC 2001",
           "From a@b Tue, 2 Jan 2001 03:04:05 +0000"});
    check({kMoment - 5, true}, {"From a@b Tue Jan  2 03:04 2001"});
    check({946684800, true}, {"From a@b Fri Dec 31 23:59:60 99"});
    check({}, {"From ", "From a@b Tue Jan  2 03:04:05", "From a@b Tue Feb 30 03:04:05 2001",
               "From a@b Tue Jan  2 24:04:05 2001", "From a@b Tue Jan  2 03:60:05 2001",
               "From a@b Wed Dec 31 23:00:00 1969", "From a@b Thu Jan  1 01:00:00 1970",
               "From a@b Tue Jan  2 03:04:05 +9900 2001", "From a@b Tue Jan  2 03:04:05 20011",
               "From a@b Tue 2 03:04:05 2001", "From a 1:22 1:2:"});
}

}  // namespace
}  // namespace pelk
