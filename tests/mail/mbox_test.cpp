#include <filesystem>

#include "platform/error.h"
#include "tests/mail/mail_fixture.h"

namespace pelk {
namespace {

class MboxTest : public MailTest {};

TEST_F(MboxTest, beginsAMessageBehindAnEmptyLine) {
    files.write("a", mbox("1") +
                         "From x\r\nSubject: 2\r\n\r\nText\r\nFrom x\r\n\r\nFrom y\nSubject: 3\n\n"
                         ">From x\n \nFrom x\n\nfrom x\n\n From x\n\nFrom\n\nFromm");
    EXPECT_EQ(treeOf("a"), "a[1 2 3]");
    files.write("b", "From x\nSubject: 1");
    EXPECT_EQ(treeOf("b"), "b[1]");
    files.write("c", "From x\n\nFrom x\n\nFrom ");
    EXPECT_EQ(openFolder("c")->itemCount(), 3);
    files.write("d", "");
    EXPECT_EQ(treeOf("d"), "d[]");
}

// The file is read a megabyte at a time; what parts messages, and what makes one doubtful, may lie
// across the seam.
TEST_F(MboxTest, findsEveryMessageOfALargeFile) {
    const std::size_t seam = 1 << 20;
    const std::string request =
        "From x\r\nSubject: m\r\nContent-Type: text/calendar; method=REPLY\r\n\r\n";
    for (std::size_t shift = 0; shift < 580; shift += shift == 70 ? 420 : 1) {
        std::string text = mbox("1");
        text += std::string(seam - shift - text.size(), 'x') + "\r\n\r\n";
        files.write("box", text + request + mbox("2") + std::string(2000, 'x'));
        ASSERT_EQ(treeOf("box"), "box[1 m* 2]") << shift;
    }
}

TEST_F(MboxTest, handsOutItemsThatOutliveTheFolder) {
    files.write("box", mbox("1") + mbox("2"));
    std::shared_ptr<MailItem> item = openFolder("box")->mailItem(2);
    std::filesystem::remove(files.path() + "/box");
    EXPECT_EQ(item->creationTime(), (LocalTime{2001, 1, 2, 4, 4, 5}));
    EXPECT_EQ(item->replyRecipient()->name, "Jane");
    EXPECT_EQ(item->recipient(1).address, "bob@x.org");
}

TEST_F(MboxTest, failsWhenTheFileWasChanged) {
    const std::string path = files.write("box", mbox("1") + mbox("2"));
    const auto folder = openFolder("box");
    ASSERT_EQ(folder->itemCount(), 2);
    const auto item = folder->mailItem(2);
    std::filesystem::resize_file(path, 50);
    EXPECT_THROW(item->recipientCount(), Error);
    files.write("box", "Changed " + mbox("1") + mbox("2"));
    EXPECT_THROW(item->recipientCount(), Error);
    EXPECT_THROW(folder->mailItem(0), Error);
    EXPECT_THROW(folder->mailItem(3), Error);
    files.write("box", mbox("1") + mbox("2") + mbox("3"));
    EXPECT_EQ(folder->itemCount(), 2);
    EXPECT_EQ(item->recipientCount(), 1);
}

}  // namespace
}  // namespace pelk
