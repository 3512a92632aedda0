// Reads the stores of mail programs other than Thunderbird. Each test builds the tree that the
// source or the documentation of the program describes.

#include <sys/stat.h>
#include <unistd.h>

#include <map>

#include "tests/mailstore/mail_fixture.h"
#include "tests/support/message_of.h"

namespace pelk {
namespace {

namespace fs = std::filesystem;

/// Everything that a program could change in a tree by more than reading it.
std::map<std::string, std::vector<std::int64_t>> snapshot(const std::string& top) {
    std::map<std::string, std::vector<std::int64_t>> entries;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(top)) {
        struct stat status {};
        EXPECT_EQ(::lstat(entry.path().c_str(), &status), 0);
        entries[entry.path()] = {static_cast<std::int64_t>(status.st_ino),
                                 status.st_size,
                                 status.st_mode,
                                 status.st_mtim.tv_sec,
                                 status.st_mtim.tv_nsec,
                                 status.st_ctim.tv_sec,
                                 status.st_ctim.tv_nsec};
    }
    return entries;
}

class LayoutsTest : public MailTest {
 protected:
    /// Writes messages with the name of the file as subject.
    void write(const std::vector<std::string>& names) const {
        for (const std::string& name : names)
            files.write(name, message(name.substr(name.rfind('/') + 1)));
    }
    std::string pathOf(const std::string& name) const { return files.path() + "/" + name; }

    /// Returns the tree of `name`, and checks that reading it changes nothing on disk.
    std::string readOnlyTreeOf(const std::string& name) const {
        const auto before = snapshot(files.path());
        std::string tree = treeOf(name);
        EXPECT_EQ(snapshot(files.path()), before) << name;
        return tree;
    }
};

std::string emlx(const std::string& message, const std::string& properties,
                 std::ptrdiff_t lengthError = 0) {
    const auto length = static_cast<std::ptrdiff_t>(message.size()) + lengthError;
    return std::to_string(length) + "      \n" + message +
           "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n" +
           properties + "</dict>\n</plist>\n";
}

// Akonadi's libmaildir: the subfolders of X are in ".X.directory" beside it, also for the top.
TEST_F(LayoutsTest, readsKMail) {
    write({"local-mail/inbox/cur/1.R1.host:2,S", "local-mail/.inbox.directory/work/new/2",
           "local-mail/.inbox.directory/.work.directory/old/cur/3", "local-mail/sent-mail/cur/4",
           ".local-mail.directory/lists/cur/5"});
    files.write("local-mail/WARNING_README.txt", "Do not touch.\n");
    EXPECT_EQ(readOnlyTreeOf("local-mail"),
              "local-mail[](inbox[1.R1.host:2,S](work[2](old[3])) lists[5] sent-mail[4])");
    EXPECT_EQ(openFolder("local-mail/.inbox.directory/work")->place(),
              fs::canonical(pathOf("local-mail")).string() + "/inbox/work");
}

// camel-maildir-store.c: "..maildir++" tells that '.' and '_' in names are hexadecimal; the inbox
// is the store itself. camel-data-cache.c: the IMAP cache spreads messages over 64 directories.
TEST_F(LayoutsTest, readsEvolution) {
    write({"local/cur/1:2,S", "local/.Sent/cur/2:2,S", "local/.Lists.a_2Eb_5Fc/cur/3:2,",
           "local/..Work/cur/4:2,", "cache/folders/INBOX/cur/0a/17", "cache/folders/INBOX/cur/3f/9",
           "cache/folders/INBOX/subfolders/Ä. b/cur/11/5",
           "cache/folders/[Gmail]/subfolders/Trash/cur/00/6", "plain/.a_2Eb/cur/7"});
    for (const char* const index :
         {"local/..maildir++", "local/..cmeta", "local/.Sent.cmeta", "local/.Sent.ibex.index",
          "cache/folders/INBOX/cmeta", "cache/folders.db"})
        files.write(index, "maildir++ 1");
    fs::create_symlink("..", pathOf("cache/folders/INBOX/subfolders/up"));
    fs::create_symlink(".", pathOf("cache/folders/INBOX/subfolders/Ä. b/subfolders"));
    EXPECT_EQ(readOnlyTreeOf("local"),
              "local[1:2,S](Inbox[](Work[4:2,]) Lists[](a.b_c[3:2,]) "
              "Sent[2:2,S])");
    EXPECT_EQ(readOnlyTreeOf("cache"),
              "cache[](folders[](INBOX[17 9](Ä. b[5]) [Gmail][](Trash[6])))");
    EXPECT_EQ(treeOf("plain"), "plain[](a_2Eb[7])") << "a name of another program";
    EXPECT_EQ(openFolder("cache/folders/INBOX/subfolders/Ä. b")->place(),
              fs::canonical(pathOf("cache/folders/INBOX")).string() + "/Ä. b");
}

// The layouts of Mail 2 ("Messages" in the mailbox) and of Mail 5 and later (UUID, Data, numbers).
TEST_F(LayoutsTest, readsAppleMail) {
    const std::string account = "V10/0A1B2C3D-0A1B-0A1B-0A1B-0A1B2C3D4E5F/";
    const std::string inbox = account + "INBOX.mbox/11111111-2222-3333-4444-555555555555/Data/";
    const std::string received = "<key>date-received</key>\n<integer>1000000000</integer>\n";
    const std::string flags = "<key>flags</key>\n\t<integer>";
    files.write(inbox + "Messages/1.emlx", emlx(message("1"), flags + "8590195713</integer>"));
    files.write(inbox + "3/4/Messages/43017.partial.emlx", emlx(message("part"), received));
    files.write(inbox + "3/Messages/3018.emlx",
                emlx(message("gone"), flags + "8590195715</integer>"));
    files.write(inbox + "3/Attachments/3017/2/attached.eml", message("attached"));
    files.write(inbox + "3/Messages/3019.2.emlxpart", "attachment");
    files.write(account + "INBOX.mbox/Sub.mbox/Messages/5.emlx", emlx(message("5"), ""));
    files.write(account + "Deleted Messages.mbox/Info.plist", "<plist/>");
    files.write(account + "Deleted Messages.mbox/Messages/6.emlx", emlx(message("6"), ""));
    files.write("V10/MailData/Envelope Index", "SQLite format 3");
    fs::create_symlink("..", pathOf(inbox + "3/Data"));
    EXPECT_EQ(readOnlyTreeOf("V10"),
              "V10[](0A1B2C3D-0A1B-0A1B-0A1B-0A1B2C3D4E5F[](Deleted Messages[6] "
              "INBOX[1 part](Sub[5])) MailData[])");
    EXPECT_EQ(treeOf(account + "INBOX.mbox"), "INBOX[1 part](Sub[5])");
    EXPECT_EQ(treeOf(inbox + "Messages/1.emlx"), "1.emlx[1]");
    const auto session = open("V10");
    const auto account0 = session->folders()->next()->folders()->next();
    const auto deleted = account0->folders()->next();
    EXPECT_TRUE(session->isDefaultFolder(*deleted, DefaultFolder::DeletedItems));
    const auto part = openFolder(inbox + "3/4/Messages/43017.partial.emlx")->mailItem(1);
    EXPECT_EQ(part->creationTime(), (LocalTime{2001, 9, 9, 3, 46, 40}));
    EXPECT_EQ(part->replyRecipient()->address, "jane@x.org");
}

TEST_F(LayoutsTest, tellsOfDamagedEmlxFiles) {
    const std::string good = emlx(message("1"), "");
    files.write("top/good.emlx", good);
    for (const std::string& bad :
         {emlx(message("1"), "", 5), emlx(message("1"), "", -20), emlx(message("1"), "", 5000),
          good.substr(0, 60), std::string("12"), std::string("x\n"), std::string(),
          "99999999999999999999999 \n" + message("1")}) {
        files.write("top/bad.emlx", bad);
        const auto folder = openFolder("top");
        ASSERT_EQ(folder->itemCount(), 2) << bad;
        EXPECT_NE(messageOf([&] { folder->mailItem(1); }).find(pathOf("top/bad.emlx")),
                  std::string::npos)
            << bad;
        EXPECT_EQ(folder->mailItem(2)->recipientCount(), 1);
    }
}

TEST_F(LayoutsTest, readsFoldersOfNumberedMessages) {
    write({"mh/inbox/1", "mh/inbox/20", "mh/inbox/,3", "mh/inbox/work/4"});
    files.write("mh/inbox/2001", mbox("year"));
    files.write("mh/inbox/5", "not a message");
    files.write("mh/inbox/.mh_sequences", "unseen: 1\n");
    EXPECT_EQ(readOnlyTreeOf("mh"), "mh[](inbox[1 20](2001[year] work[4]))");
}

TEST_F(LayoutsTest, tellsOfMailInUnknownFormats) {
    write({"top/known/1.eml", "top/known/notes.txt", "top/other/a.message", "top/other/b.message"});
    files.write("top/archive.pst", "!BDN and more");
    files.write("top/old.msf", "!BDN");
    for (const char* const index : {"top/other/x.ibex.index", "top/dovecot.index", "top/a.db"})
        files.write(index, "index: of a mail program");
    EXPECT_EQ(readOnlyTreeOf("top"), "top[](archive.pst[!] known[1.eml] other[](a.message[!]))");
    const std::string unknown = ": mail of a kind that Pelk cannot read.";
    for (const auto& [path, named] : std::vector<std::pair<const char*, const char*>>{
             {"top/other", "top/other/a.message and 1 more"},
             {"top/archive.pst", "top/archive.pst"},
             {"top/other/a.message", "top/other/a.message"}})
        EXPECT_EQ(messageOf([&] { open(path); }), pathOf(named) + unknown);
}

}  // namespace
}  // namespace pelk
