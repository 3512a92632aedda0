// Folders as they lie on disk.

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "platform/error.h"
#include "tests/mail/mail_fixture.h"

namespace pelk {
namespace {

class FoldersTest : public MailTest {
 protected:
    void link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, files.path() + "/" + name);
    }
};

TEST_F(FoldersTest, listsAPlainFolder) {
    files.write("top/b.eml", message("b"));
    files.write("top/B.EML", message("B"));
    files.write("top/a.eml", "From x\n" + message("a"));
    files.write("top/.c.eml", message("c"));
    files.write("top/sub/x.eml", message("x"));
    files.write("top/sub/tmp/y.eml", message("y"));
    files.write("top/mail", mbox("m"));
    files.write("top/zed", mbox("z"));
    files.write("top/.hidden", mbox("h"));
    files.write("top/.git/new.eml", message("g"));
    files.write("top/empty", "");
    files.write("top/fresh", "");
    files.write("top/fresh.msf", "");
    files.write("top/notes.txt", "Remember");
    files.write("top/notes.msf", "From nowhere");
    EXPECT_EQ(treeOf("top"), "top[B a b](fresh[] mail[m] sub[x] zed[z])");
}

TEST_F(FoldersTest, listsMaildirs) {
    files.write("md/cur/2.x:2,S", message("2"));
    files.write("md/new/1.x", message("1"));
    files.write("md/new/3.x", message("3"));
    files.write("md/cur/.index", "");
    files.write("md/tmp/4.x", message("4"));
    files.write("md/dovecot-uidlist", "3 V1");
    files.write("md/maildirfolder", "");
    files.write("md/courierimapkeywords/x.eml", message("k"));
    files.write("md/.Sub/cur/1.x", message("s"));
    files.write("md/.Sub.Deep.Low/new/1.x", message("l"));
    files.write("md/.Sub.Deep-er/new/1.x", message("r"));
    files.write("md/.Gone.Entw&APw-rfe &- R&D/cur/1.x", message("g"));
    files.write("md/.Gone.&2D3eAA-&Jjo-/cur/1.x", message("e"));
    files.write("md/.Odd..Name./cur/1.x", message("o"));
    files.write("md/.git/config", "");
    files.write("md/tree/cur/1.x", message("t"));
    files.write("md/tree/leaf/new/1.x", message("f"));
    EXPECT_EQ(treeOf("md"),
              "md[1 2 3](Gone[](😀☺[e] Entw&APw-rfe &- R&D[g]) Odd..Name.[o] "
              "Sub[s](Deep[](Low[l]) Deep-er[r]) tree[t](leaf[f]))");
    files.write("utf7/.Entw&APw-rfe &- R/cur/1.x", message("u"));
    EXPECT_EQ(treeOf("utf7"), "utf7[](Entwürfe & R[u])");
}

TEST_F(FoldersTest, listsCompanionsOfMboxes) {
    files.write("tb/Inbox", mbox("i"));
    files.write("tb/Inbox.msf", "");
    files.write("tb/Inbox.sbd/Work", "");
    files.write("tb/Inbox.sbd/Work.sbd/Old", mbox("o"));
    files.write("tb/Inbox.sbd/None", "");
    files.write("tb/Lone.sbd/L", mbox("l"));
    files.write("tb/Dir/cur/1.x", message("d"));
    files.write("tb/Dir.sbd/D", mbox("dd"));
    files.write("tb/text", "no mbox");
    files.write("tb/text.sbd/T", mbox("t"));
    EXPECT_EQ(treeOf("tb"),
              "tb[](Dir[d](D[dd]) Inbox[i](Work[](Old[o])) Lone[](L[l]) text[](T[t]))");
    EXPECT_EQ(treeOf("tb/Inbox"), "Inbox[i](Work[](Old[o]))");
}

TEST_F(FoldersTest, endsAtSymbolicLinks) {
    files.write("top/a/1.eml", message("1"));
    files.write("top/b", mbox("b"));
    link("..", "top/a/up");
    link(".", "top/a/self");
    link("c", "top/c");
    link("missing", "top/d");
    link("../top", "top/b.sbd");
    link("../a", "top/a/again");
    link("a", "top/same");
    EXPECT_EQ(treeOf("top"), "top[](a[1] b[b] same[1])");
}

TEST_F(FoldersTest, goesOnPastWhatCannotBeRead) {
    files.write("top/a/1.eml", message("1"));
    files.write("top/b/cur/1.x", message("1"));
    files.write("top/b/cur/2.x", message("2"));
    files.write("top/c", mbox("c"));
    files.write("top/d", mbox("d"));
    const auto folders = openFolder("top")->folders();
    const auto a = folders->first();
    const auto b = folders->next();
    ASSERT_EQ(b->itemCount(), 2);
    std::filesystem::remove_all(files.path() + "/top/a");
    std::filesystem::remove(files.path() + "/top/b/cur/1.x");
    std::filesystem::remove(files.path() + "/top/c");
    EXPECT_THROW(a->itemCount(), Error);
    const auto inA = a->folders();
    EXPECT_THROW(inA->first(), Error);
    EXPECT_EQ(inA->next(), nullptr);
    EXPECT_THROW(b->mailItem(1), Error);
    EXPECT_EQ(b->mailItem(2)->recipientCount(), 1);
    EXPECT_THROW(folders->next()->itemCount(), Error);
    EXPECT_EQ(folders->next()->itemCount(), 1);
}

TEST_F(FoldersTest, asksNothingOfPipesAndLockedFolders) {
    files.write("top/open/1.eml", message("1"));
    const std::string locked = files.path() + "/top/locked";
    std::filesystem::create_directory(locked);
    ASSERT_EQ(::mkfifo((files.path() + "/top/pipe").c_str(), 0600), 0);
    ASSERT_EQ(::mkfifo((files.path() + "/top/open/pipe.eml").c_str(), 0600), 0);
    files.write("top/box", mbox("b"));
    std::filesystem::permissions(locked, std::filesystem::perms::none);
    std::filesystem::permissions(files.path() + "/top/box", std::filesystem::perms::none);
    const std::string expected =
        ::geteuid() == 0 ? "top[](box[b] locked[] open[1])" : "top[](box[!] locked[!](!) open[1])";
    EXPECT_EQ(treeOf("top"), expected);
    std::filesystem::permissions(locked, std::filesystem::perms::owner_all);
}

TEST_F(FoldersTest, namesStoresByTheirPath) {
    files.write("top/x/1.eml", message("1"));
    const std::string top = files.path() + "/top";
    files.write("top/box", mbox("b"));
    std::filesystem::current_path(top);
    const auto session = openMailSession({top + "//", ".", "x/..", "./box", "x/1.eml"}, {});
    std::string names;
    const auto folders = session->folders();
    for (auto folder = folders->first(); folder; folder = folders->next())
        names += folder->name() + " " + std::to_string(folder->itemCount()) + " ";
    EXPECT_EQ(names, "top 0 top 0 top 0 box 1 1.eml 1 ");
    std::filesystem::current_path("/");
}

TEST_F(FoldersTest, refusesWhatIsNoStore) {
    files.write("text", "Hello");
    files.write("dir/sub/text.txt", "Hello");
    link("..", "dir/sub/up");
    ASSERT_EQ(::mkfifo((files.path() + "/pipe").c_str(), 0600), 0);
    for (const char* const name : {"text", "dir", "missing", "text/below", "pipe"}) {
        try {
            open(name);
            ADD_FAILURE() << name;
        } catch (const Error& error) {
            EXPECT_NE(std::string(error.what()).find(files.path() + "/" + name), std::string::npos);
        }
    }
    EXPECT_THROW(openMailSession({""}, {}), Error);
    files.write("dir/sub/deep/box", mbox("b"));
    EXPECT_EQ(treeOf("dir"), "dir[](sub[](deep[](box[b])))");
}

TEST_F(FoldersTest, knowsOutboxAndDeletedItems) {
    const auto kinds = [&](const MailStoreOptions& options) {
        std::string text;
        for (const char* const name :
             {"Outbox", "UNSENT messages", "deleted items", "Trash", "Müll"}) {
            const std::string path = files.write(name, "");
            const auto session = openMailSession({path}, options);
            const auto folder = session->folders()->first();
            text += session->isDefaultFolder(*folder, DefaultFolder::Outbox)         ? 'o'
                    : session->isDefaultFolder(*folder, DefaultFolder::DeletedItems) ? 'd'
                                                                                     : '-';
        }
        return text;
    };
    EXPECT_EQ(kinds({}), "oodd-");
    EXPECT_EQ(kinds({{}, {"mÜll"}}), "oo--d");
    EXPECT_EQ(kinds({{"Trash", "other"}, {}}), "--do-");
}

}  // namespace
}  // namespace pelk
