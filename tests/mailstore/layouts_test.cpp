// Reads the stores of mail programs other than Thunderbird. Each test builds the tree that the
// source or the documentation of the program describes.

#include <lzma.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <zlib.h>
#include <zstd.h>

#include <atomic>
#include <map>
#include <thread>

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

/// Writes to the database of a Geary account, as Geary does while it runs.
class GearyAccount {
 public:
    explicit GearyAccount(const std::string& path) {
        EXPECT_EQ(sqlite3_open(path.c_str(), &database_), SQLITE_OK);
        // The columns of sql/version-*.sql that matter here.
        run("PRAGMA journal_mode=WAL;"
            "CREATE TABLE FolderTable (id INTEGER PRIMARY KEY, name TEXT, parent_id INTEGER);"
            "CREATE TABLE MessageTable (id INTEGER PRIMARY KEY, fields INTEGER, date_field TEXT,"
            " from_field TEXT, sender TEXT, reply_to TEXT, to_field TEXT, cc TEXT, bcc TEXT,"
            " message_id TEXT, subject TEXT, header TEXT, body TEXT, flags TEXT,"
            " internaldate_time_t INTEGER);"
            "CREATE TABLE MessageLocationTable (id INTEGER PRIMARY KEY, message_id INTEGER,"
            " folder_id INTEGER, ordering INTEGER, remove_marker INTEGER DEFAULT 0);"
            "INSERT INTO FolderTable VALUES (1, 'INBOX', NULL), (2, '[Gmail]', NULL),"
            " (3, 'Trash', 2), (4, 'x', 4);");
    }
    ~GearyAccount() { sqlite3_close(database_); }

    void run(const std::string& sql) const {
        EXPECT_EQ(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database_);
    }
    /// Files a message with this header and body. `columns` are those of MessageTable.
    void add(int id, int folder, const std::string& columns, const std::string& values,
             bool removed = false) const {
        const std::string number = std::to_string(id);
        run("INSERT INTO MessageTable (id, " + columns + ") VALUES (" + number + ", " + values +
            ")");
        run("INSERT INTO MessageLocationTable VALUES (" + number + ", " + number + ", " +
            std::to_string(folder) + ", " + std::to_string(100 - id) + ", " +
            std::to_string(static_cast<int>(removed)) + ")");
    }

 private:
    sqlite3* database_ = nullptr;
};

TEST_F(LayoutsTest, readsGeary) {
    files.write("account/attachments/1/a.eml", message("attached"));
    const std::string path = pathOf("account/geary.db");
    const char* const whole = "header, body, internaldate_time_t";
    {
        const GearyAccount account(path);
        account.add(1, 1, whole, "'From: j@x\r\nTo: b@x\r\nSubject: 1\r\n\r\n', 'x', 1000000000");
        account.add(2, 1, "from_field, to_field, subject, message_id",
                    "'J <j@x>', 'b@x, c@x', '=?utf-8?q?=C3=A4?=', '<i@d>'");
        account.add(3, 1, "fields", "0");
        account.add(4, 1, whole, "'Subject: gone', '', 0", true);
        account.add(5, 1, "header, flags", "'Subject: gone', '\\Seen \\Deleted'");
        account.add(6, 1, whole,
                    "'Subject: m\nContent-Type: multipart/mixed; boundary=o\n', '--o\n"
                    "Content-Type: text/calendar; method=REPLY\n\n', 0");
        account.run("PRAGMA wal_checkpoint(TRUNCATE)");
        account.add(7, 3, whole, "'Subject: late', '', 0");
        ASSERT_GT(fs::file_size(path + "-wal"), 0U);
        EXPECT_EQ(readOnlyTreeOf("account"), "account[](INBOX[m* ä 1] [Gmail][](Trash[late]))");
    }
    ASSERT_FALSE(fs::exists(path + "-wal"));
    fs::permissions(pathOf("account"), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(readOnlyTreeOf("account/geary.db"),
              "geary.db[](INBOX[m* ä 1] [Gmail][](Trash[late]))");
    fs::permissions(pathOf("account"), fs::perms::owner_all);
    const auto session = open("account");
    const auto inbox = session->folders()->next()->folders()->next();
    EXPECT_EQ(inbox->place(), fs::canonical(pathOf("account")).string() + "/INBOX");
    EXPECT_EQ(inbox->mailItem(2)->recipient(2).address, "c@x");
    EXPECT_EQ(inbox->mailItem(2)->messageId(), "i@d");
    EXPECT_EQ(inbox->mailItem(3)->creationTime(), (LocalTime{2001, 9, 9, 3, 46, 40}));
    EXPECT_EQ(openFolder("account/geary.db")->place() + "/INBOX", inbox->place());
    EXPECT_EQ(describe(*openMailSession({path, pathOf("account")}, {})->folders()),
              treeOf("account"));
    const auto folders = session->folders()->next()->folders();
    folders->next();
    const auto trash = folders->next()->folders()->next();
    EXPECT_TRUE(session->isDefaultFolder(*trash, DefaultFolder::DeletedItems));
}

TEST_F(LayoutsTest, tellsOfDamagedAndChangedGearyFiles) {
    const std::string path = pathOf("account/geary.db");
    for (const char* const content : {"garbage that is not a database", ""}) {
        files.write("account/geary.db", content);
        EXPECT_NE(messageOf([&] {
                      open("account/geary.db")->folders()->next()->folders()->next();
                  }).find(path),
                  std::string::npos);
        EXPECT_EQ(treeOf("account"), "account[](geary.db[!])");
    }
    fs::remove(path);
    const GearyAccount account(path);
    account.add(1, 1, "header", "'Subject: 1'");
    account.run("PRAGMA wal_checkpoint(TRUNCATE)");
    const auto inbox = openFolder("account")->folders()->next();
    ASSERT_EQ(inbox->itemCount(), 1);
    account.add(2, 1, "header", "'Subject: 2'");
    EXPECT_NO_THROW(inbox->mailItem(1)) << "the change is pending";
    account.run("PRAGMA wal_checkpoint(TRUNCATE)");
    EXPECT_NE(messageOf([&] { inbox->mailItem(1); }).find("changed by another program"),
              std::string::npos);
    EXPECT_EQ(openFolder("account")->folders()->next()->itemCount(), 2);
}

// A copy that mixes two states of the files loses mail without an error. The database is so large
// that the writer starts its WAL anew while it is copied.
TEST_F(LayoutsTest, readsGearyWhileItWritesOrNotAtAll) {
    fs::create_directory(pathOf("account"));
    const GearyAccount account(pathOf("account/geary.db"));
    account.run("PRAGMA wal_autocheckpoint=0; PRAGMA synchronous=OFF");
    account.add(1, 1, "header, body", "'Subject: 1', zeroblob(10000000)");
    account.run("PRAGMA wal_checkpoint(PASSIVE)");
    std::atomic<bool> done = false;
    std::thread writer([&] {
        const std::string filler(2000, 'x');
        for (int id = 2; !done; ++id) {
            account.add(id, 1, "header",
                        "'Subject: " + std::to_string(id) + char('\n') + "X: " + filler + "'");
            if (id % 10 == 0)
                account.run("PRAGMA wal_checkpoint(PASSIVE)");
        }
    });
    for (int i = 0; i < 2; ++i) {
        const auto inbox = openFolder("account")->folders()->next();
        int count = 0;
        std::string newest;
        const std::string fault = messageOf([&] {
            count = inbox->itemCount();
            newest = dynamic_cast<StoredFolder&>(*inbox).summary(1).subject;
        });
        EXPECT_TRUE(newest == std::to_string(count) ||
                    fault.find("a program is writing to it") != std::string::npos)
            << count << " " << newest << " " << fault;
    }
    done = true;
    writer.join();
}

std::string gzip(const std::string& text) {
    z_stream stream{};
    deflateInit2(&stream, 6, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, text.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

std::string xz(const std::string& text) {
    std::string packed(lzma_stream_buffer_bound(text.size()), '\0');
    std::size_t length = 0;
    EXPECT_EQ(lzma_easy_buffer_encode(6, LZMA_CHECK_CRC64, nullptr,
                                      reinterpret_cast<const std::uint8_t*>(text.data()),
                                      text.size(), reinterpret_cast<std::uint8_t*>(packed.data()),
                                      &length, packed.size()),
              LZMA_OK);
    packed.resize(length);
    return packed;
}

std::string zstd(const std::string& text) {
    ZSTD_CCtx* const context = ZSTD_createCCtx();
    ZSTD_CCtx_setParameter(context, ZSTD_c_checksumFlag, 1);
    std::string packed(ZSTD_compressBound(text.size()), '\0');
    packed.resize(ZSTD_compress2(context, packed.data(), packed.size(), text.data(), text.size()));
    ZSTD_freeCCtx(context);
    return packed;
}

/// Mail that does not compress well, so that its packed form fills several blocks.
std::string largeMbox() {
    std::string text = mbox("1");
    std::uint32_t random = 1;
    for (int i = 0; i < 600'000; ++i) {
        random = random * 1664525 + 1013904223;
        text += static_cast<char>('!' + (random >> 16) % 94);
    }
    return text + "\n\n" + mbox("2");
}

TEST_F(LayoutsTest, readsCompressedMboxes) {
    for (const auto pack : {gzip, xz, zstd}) {
        files.write("top/all.mbox.gz", pack(largeMbox()));
        files.write("top/parts", pack(mbox("1")) + pack(mbox("2")) + pack(mbox("3")));
        files.write("top/text.tar.gz", pack("no mail"));
        files.write("top/one.eml", message("x"));
        EXPECT_EQ(readOnlyTreeOf("top"), "top[x](all.mbox.gz[1 2] parts[1 2 3])");
        EXPECT_EQ(openFolder("top/parts")->mailItem(2)->creationTime(),
                  (LocalTime{2001, 1, 2, 3, 4, 5}));
        EXPECT_THROW(open("top/text.tar.gz"), Error);
    }
}

TEST_F(LayoutsTest, tellsOfDamagedCompressedMboxes) {
    for (const auto pack : {gzip, xz, zstd}) {
        const std::string good = pack(largeMbox());
        std::string flipped = good;
        flipped[good.size() / 2] = static_cast<char>(flipped[good.size() / 2] ^ 0x10);
        std::vector<std::string> bad = {flipped, good + "rest"};
        for (const std::size_t length : {good.size() - 1, good.size() / 2, std::size_t{12}})
            bad.push_back(good.substr(0, length));
        for (const std::string& content : bad) {
            files.write("top/box", mbox("1"));
            files.write("top/mail.gz", content);
            EXPECT_EQ(treeOf("top"), "top[](box[1] mail.gz[!])") << content.size();
        }
    }
    ::setenv("TMPDIR", pathOf("missing").c_str(), 1);
    files.write("top/mail.gz", gzip(mbox("1")));
    EXPECT_NE(
        messageOf([&] { openFolder("top/mail.gz")->itemCount(); }).find("to " + pathOf("missing")),
        std::string::npos);
    ::unsetenv("TMPDIR");
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
        EXPECT_EQ(messageOf([&, path = path] { open(path); }), pathOf(named) + unknown);
}

}  // namespace
}  // namespace pelk
