// Folders as they lie on disk.

#include <sys/stat.h>
#include <unistd.h>

#include "tests/mail/mail_fixture.h"
#include "tests/support/message_of.h"

namespace pelk {
namespace {

std::string nothing(const std::string&) {
    return {};
}

class FoldersTest : public MailTest {
 protected:
    /// Writes files with mail whose subject is the name of the file.
    void write(std::string (*content)(const std::string&),
               const std::vector<std::string>& names) const {
        for (const std::string& name : names)
            files.write(name, content(name.substr(name.rfind('/') + 1)));
    }
    std::string pathOf(const std::string& name) const { return files.path() + "/" + name; }
    void link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, pathOf(name));
    }
    void makePipe(const std::string& name) const {
        ASSERT_EQ(::mkfifo(pathOf(name).c_str(), 0600), 0);
    }
};

TEST_F(FoldersTest, listsAPlainFolder) {
    write(message, {"top/b.eml", "top/B.EML", "top/.c.eml", "top/sub/x.eml", "top/sub/tmp/y.eml",
                    "top/.git/new.eml", "top/notes.txt"});
    write(mbox, {"top/a.eml", "top/mail", "top/zed", "top/.hidden", "top/notes.msf"});
    write(nothing, {"top/empty", "top/fresh", "top/fresh.msf"});
    EXPECT_EQ(treeOf("top"), "top[B.EML a.eml b.eml](fresh[] mail[mail] sub[x.eml] zed[zed])");
}

TEST_F(FoldersTest, listsMaildirs) {
    write(message,
          {"md/cur/2:2,S", "md/new/1", "md/new/3", "md/cur/.index", "md/tmp/4",
           "md/dovecot-uidlist", "md/courierimapkeywords/x.eml", "md/.Sub/cur/s",
           "md/.Sub.Deep.Low/new/l", "md/.Sub.Deep-er/new/r", "md/.Gone.Entw&APw-rfe &- R&D/cur/g",
           "md/.Gone.&2D3eAA-&Jjo-/cur/e", "md/.Odd..Name./cur/o", "md/tree/cur/t",
           "md/tree/leaf/new/f", "utf7/.Entw&APw-rfe &- R/cur/u"});
    EXPECT_EQ(treeOf("md"),
              "md[1 2:2,S 3](Gone[](😀☺[e] Entw&APw-rfe &- R&D[g]) Odd..Name.[o] "
              "Sub[s](Deep[](Low[l]) Deep-er[r]) tree[t](leaf[f]))");
    EXPECT_EQ(treeOf("utf7"), "utf7[](Entwürfe & R[u])");
}

TEST_F(FoldersTest, listsCompanionsOfMboxes) {
    write(mbox, {"tb/Inbox", "tb/Inbox.sbd/Work.sbd/Old", "tb/Lone.sbd/L", "tb/Dir.sbd/D",
                 "tb/text.sbd/T"});
    write(message, {"tb/Dir/cur/d", "tb/text"});
    write(nothing, {"tb/Inbox.msf", "tb/Inbox.sbd/Work", "tb/Inbox.sbd/None"});
    EXPECT_EQ(treeOf("tb"),
              "tb[](Dir[d](D[D]) Inbox[Inbox](Work[](Old[Old])) Lone[](L[L]) text[](T[T]))");
    EXPECT_EQ(treeOf("tb/Inbox"), "Inbox[Inbox](Work[](Old[Old]))");
}

TEST_F(FoldersTest, passesOverLoopsPipesAndLockedFiles) {
    write(message, {"top/a/1.eml"});
    write(mbox, {"top/b", "top/box"});
    link("..", "top/a/up");
    link("../top", "top/b.sbd");
    link("c", "top/c");
    link("a", "top/same");
    makePipe("top/pipe");
    makePipe("top/a/pipe.eml");
    std::filesystem::permissions(pathOf("top/box"), std::filesystem::perms::none);
    const std::string box = ::geteuid() == 0 ? "box[box]" : "box[!]";  // root opens everything
    EXPECT_EQ(treeOf("top"), "top[](a[1.eml] b[b] " + box + " same[1.eml])");
}

TEST_F(FoldersTest, goesOnPastWhatIsGone) {
    write(message, {"top/a/1.eml", "top/b/cur/1", "top/b/cur/2"});
    write(mbox, {"top/c", "top/d"});
    const auto folders = openFolder("top")->folders();
    const auto a = folders->first();
    const auto b = folders->next();
    ASSERT_EQ(b->itemCount(), 2);
    for (const char* const name : {"top/a", "top/b/cur/1", "top/c"})
        std::filesystem::remove_all(pathOf(name));
    EXPECT_THROW(a->itemCount(), Error);
    EXPECT_THROW(a->folders()->first(), Error);
    EXPECT_THROW(b->mailItem(1), Error);
    EXPECT_EQ(b->mailItem(2)->recipientCount(), 1);
    EXPECT_THROW(folders->next()->itemCount(), Error);
    EXPECT_EQ(folders->next()->itemCount(), 1);
}

TEST_F(FoldersTest, handsOutManyItemsInTurnAndOutOfTurn) {
    constexpr int kCount = 600;
    constexpr int kGone = 300;
    std::vector<int> order;
    for (int i = 1; i <= kCount; ++i) {
        const std::string more(i < 10 ? 700'000 : 1, 'x');
        files.write("md/cur/" + std::to_string(1000 + i),
                    "X: " + more + "\nFrom: " + std::to_string(i) + "@x\n\n");
        order.push_back(i);
    }
    order.insert(order.end(), {kCount, 5, 6, kGone, kGone + 1, 129, 130, 1, 2, kCount});
    const auto folder = openFolder("md");
    ASSERT_EQ(folder->itemCount(), kCount);
    std::filesystem::remove(pathOf("md/cur/" + std::to_string(1000 + kGone)));
    std::vector<std::shared_ptr<MailItem>> kept;
    for (const int i : order) {
        if (i == kGone) {
            EXPECT_THROW(folder->mailItem(i), Error);
            continue;
        }
        kept.push_back(folder->mailItem(i));
        EXPECT_EQ(kept.back()->replyRecipient()->address, std::to_string(i) + "@x");
    }
    const std::filesystem::directory_iterator openFiles("/proc/self/fd");
    EXPECT_LT(std::distance(openFiles, {}), kCount) << "a process may have 1024 files open";
}

TEST_F(FoldersTest, namesStoresByTheirPath) {
    write(message, {"top/x/1.eml"});
    write(mbox, {"top/box"});
    std::filesystem::current_path(pathOf("top"));
    const auto session = openMailSession({pathOf("top//"), ".", "x/..", "./box", "x/1.eml"}, {});
    EXPECT_EQ(describe(*session->folders()),
              "top[](box[box] x[1.eml]) top[](box[box] x[1.eml]) top[](box[box] x[1.eml]) "
              "box[box] 1.eml[1.eml]");
    std::filesystem::current_path("/");
}

TEST_F(FoldersTest, refusesWhatIsNoStore) {
    write(message, {"text", "dir/sub/text.txt"});
    link("..", "dir/sub/up");
    makePipe("pipe");
    for (const char* const name : {"text", "dir", "missing", "text/below", "pipe"})
        EXPECT_NE(messageOf([&] { open(name); }).find(pathOf(name)), std::string::npos) << name;
    EXPECT_THROW(openMailSession({""}, {}), Error);
    write(mbox, {"dir/sub/deep/box"});
    EXPECT_EQ(treeOf("dir"), "dir[](sub[](deep[](box[box])))");
}

TEST_F(FoldersTest, knowsOutboxAndDeletedItems) {
    const auto kinds = [&](const MailStoreOptions& options) {
        std::string text;
        for (const char* const name : {"Outbox", "UNSENT messages", "deleted items", "Müll"}) {
            const auto session = openMailSession({files.write(name, "")}, options);
            const auto folder = session->folders()->first();
            const bool outbox = session->isDefaultFolder(*folder, DefaultFolder::Outbox);
            const bool deleted = session->isDefaultFolder(*folder, DefaultFolder::DeletedItems);
            text += outbox ? "o" : deleted ? "d" : "-";
        }
        return text;
    };
    EXPECT_EQ(kinds({}), "ood-");
    EXPECT_EQ(kinds({{}, {"mÜll"}}), "oo-d");
    EXPECT_EQ(kinds({{"Müll", "other"}, {}}), "--do");
}

}  // namespace
}  // namespace pelk
