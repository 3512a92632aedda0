// Reads the folder layouts of mail programs.

#include <sys/stat.h>
#include <unistd.h>

#include "tests/mailstore/mail_fixture.h"
#include "tests/support/message_of.h"

namespace pelk {
namespace {

std::string nothing(const std::string&) {
    return {};
}

class FoldersTest : public MailTest {
 protected:
    /// Writes files with mail. The subject is the name of the file.
    void write(std::string (*content)(const std::string&),
               const std::vector<std::string>& names) const {
        for (const std::string& name : names)
            files.write(name, content(name.substr(name.rfind('/') + 1)));
    }
    std::string pathOf(const std::string& name) const { return files.path() + "/" + name; }
    void link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, pathOf(name));
    }
    std::string namesOf(const std::vector<std::string>& names) const {
        std::vector<std::string> paths;
        for (const std::string& name : names)
            paths.push_back(std::filesystem::exists(name) ? name : pathOf(name));
        const auto folders = openMailSession(paths, {})->folders();
        std::string text;
        while (const auto folder = folders->next())
            text += (text.empty() ? "" : " ") + folder->name();
        return text;
    }
    /// Returns the places of all folders without their first `skip` characters.
    static std::string placesOf(MailFolders& folders, std::size_t skip) {
        std::string text;
        while (const auto folder = folders.next()) {
            const std::string place = folder->place().substr(skip);
            text += (place.empty() ? "=" : place) + " " + placesOf(*folder->folders(), skip);
        }
        return text;
    }
    static constexpr std::string_view kLetters = "odej";
    static std::string kindsOf(MailSession& session, MailFolders& folders) {
        std::string text;
        while (const auto folder = folders.next()) {
            std::string kinds;
            for (std::size_t kind = 0; kind < kLetters.size(); ++kind)
                if (session.isDefaultFolder(*folder, static_cast<DefaultFolder>(kind)))
                    kinds += kLetters[kind];
            text += kinds.empty() ? "" : folder->name() + ":" + kinds + " ";
            text += kindsOf(session, *folder->folders());
        }
        return text;
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
    const std::string box = ::geteuid() == 0 ? "box[box]" : "box[!]";  // root may read everything
    EXPECT_EQ(treeOf("top"), "top[](a[1.eml] b[b] " + box + " same[1.eml])");
}

TEST_F(FoldersTest, goesOnPastWhatIsGone) {
    write(message, {"top/a/1.eml", "top/b/cur/1", "top/b/cur/2"});
    write(mbox, {"top/c", "top/d"});
    const auto folders = openFolder("top")->folders();
    const auto a = folders->next();
    const auto b = folders->next();
    ASSERT_EQ(b->itemCount(), 2);
    for (const char* const name : {"top/a", "top/b/cur/1", "top/c"})
        std::filesystem::remove_all(pathOf(name));
    EXPECT_THROW(a->itemCount(), Error);
    EXPECT_THROW(a->folders()->next(), Error);
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
    for (const std::string& path : {pathOf("top//"), std::string("."), std::string("x/..")})
        EXPECT_EQ(namesOf({path}), "top") << path;
    EXPECT_EQ(namesOf({"./box", "x/1.eml"}), "box 1.eml");
    std::filesystem::current_path("/");
}

TEST_F(FoldersTest, readsWhatIsNamedTwiceOnce) {
    write(message, {"top/x/1.eml", "top/md/cur/2.eml", "top/.hid/3.eml", "md/.A.B/cur/1"});
    write(mbox, {"top/box", "top/Dir.sbd/box", "top/Dir", "other"});
    link("top/box", "link");
    link("../other", "top/out");
    EXPECT_EQ(namesOf({"top", "top/", "top/x/..", "top"}), "top");
    EXPECT_EQ(namesOf({"link", "top/box", "other"}), "link other");
    for (const char* const inner :
         {"top/box", "link", "top/x", "top/x/1.eml", "top/md/cur", "top/md/cur/2.eml",
          "top/Dir.sbd", "top/Dir.sbd/box", "other"}) {
        EXPECT_EQ(namesOf({"top", inner}), "top") << inner;
        EXPECT_EQ(namesOf({inner, "md", "top"}), "md top") << inner;
    }
    EXPECT_EQ(namesOf({"top/Dir.sbd", "top/Dir"}), "Dir");
    EXPECT_EQ(namesOf({"md", "md/.A.B", "top/.hid", "top"}), "md .hid top") << "not read in top";
    EXPECT_EQ(namesOf({"top/x/1.eml", "top/x/1.eml"}), "1.eml");
}

TEST_F(FoldersTest, givesEachFolderAPlace) {
    write(mbox, {"top/Inbox", "top/Inbox.sbd/Work.sbd/Old", "top/Lone.sbd/L", "top/D.sbd/d"});
    write(message, {"top/D/d/1.eml", "top/.Lists.Kernel/cur/k", "top/.Lists/cur/l", "top/new/1"});
    const std::string root = std::filesystem::canonical(pathOf("top")).string();
    EXPECT_EQ(placesOf(*open("top")->folders(), root.size()),
              "= /.Lists /.Lists/.Kernel /D /D/d /D/d+ /Inbox /Inbox/Work /Inbox/Work/Old /Lone "
              "/Lone/L ");
    link("top/Inbox.sbd/Work.sbd", "link");
    for (const auto& [path, place] :
         std::vector<std::pair<const char*, const char*>>{{"link", "/Inbox/Work"},
                                                          {"top/Lone.sbd/L", "/Lone/L"},
                                                          {"top/Inbox", "/Inbox"},
                                                          {"top/.Lists.Kernel", "/.Lists/.Kernel"},
                                                          {"top/D/../D", "/D"}})
        EXPECT_EQ(openFolder(path)->place(), root + place) << path;
}

TEST_F(FoldersTest, refusesWhatIsNoStore) {
    write(message, {"text", "dir/sub/text.txt"});
    link("..", "dir/sub/up");
    makePipe("pipe");
    for (const char* const name : {"text", "dir", "missing", "text/below", "pipe"})
        EXPECT_NE(messageOf([&] { open(name); }).find(pathOf(name)), std::string::npos) << name;
    EXPECT_THROW(openMailSession({""}, {}), Error);
    write(mbox, {"dir/sub/deep/box"});
    EXPECT_EQ(treeOf("dir"), "dir[](sub[](deep[](box[box]) text.txt[!]))");
}

// The letters are o for outbox, d for deleted items, e for drafts and j for junk.
TEST_F(FoldersTest, knowsDefaultFoldersAtTheTopOfAStore) {
    write(mbox, {"top/Outbox", "top/Trash", "top/Trash.sbd/Trash", "top/JUNK e-mail", "top/Drafts",
                 "top/Bozze", "top/Work", "top/Work.sbd/Trash", "top/[Gmail].sbd/Papierkorb"});
    write(message, {"md/cur/1", "md/.Trash/cur/1", "md/.INBOX.Spam/cur/1", "md/.Work.Trash/cur/1",
                    "mail/a/INBOX/cur/1", "mail/a/Trash/cur/1", "mail/b/.Trash/cur/1",
                    "mail/Work/Trash/cur/1"});
    files.write("mail/imap.x/INBOX.msf", "");
    write(mbox, {"mail/imap.x/Spam"});
    const auto kinds = [&](const char* path, const MailStoreOptions& options) {
        const auto session = openMailSession({pathOf(path)}, options);
        return kindsOf(*session, *session->folders());
    };
    EXPECT_EQ(kinds("top", {}), "Bozze:e Drafts:e JUNK e-mail:j Outbox:o Trash:d Papierkorb:d ");
    EXPECT_EQ(kinds("top", {{"WORK"}, {"bozze"}}), "Bozze:de Drafts:e JUNK e-mail:j Work:o ");
    EXPECT_EQ(kinds("top/Trash", {}), "Trash:d ") << "the folder in it, not the store";
    EXPECT_EQ(kinds("md", {}), "Spam:j Trash:d ");
    EXPECT_EQ(kinds("mail", {}), "Trash:d Trash:d Spam:j ");
    const auto session = openMailSession({pathOf("top"), pathOf("top/Trash")}, {});
    EXPECT_EQ(kindsOf(*session, *session->folders()).find("Trash:d"), std::string::npos);
}

TEST_F(FoldersTest, knowsSentMailByItsName) {
    write(mbox, {"top/SENT", "top/Work", "top/Gesendete Elemente", "top/Sentences"});
    const auto folders = open("top")->folders()->next()->folders();
    std::string sent;
    while (const auto folder = folders->next())
        sent += folder->isSentMail() ? folder->name() + " " : "";
    EXPECT_EQ(sent, "Gesendete Elemente SENT ");
}

TEST_F(FoldersTest, leavesOutDraftsAndJunkUnlessAsked) {
    write(mbox, {"box"});
    const auto countOf = [&](bool drafts, bool junk) {
        MailStoreOptions options;
        options.countDrafts = drafts;
        options.countJunk = junk;
        std::string text;
        for (const DefaultFolder kind : openMailSession({pathOf("box")}, options)->leftOutFolders())
            text += kLetters[static_cast<std::size_t>(kind)];
        return text;
    };
    EXPECT_EQ(countOf(false, false), "odej");
    EXPECT_EQ(countOf(true, false), "odj");
    EXPECT_EQ(countOf(false, true), "ode");
}

TEST_F(FoldersTest, leavesOutMessagesMarkedAsDeletedInMaildirs) {
    write(message, {"md/cur/1:2,ST", "md/cur/2:2,S", "md/cur/3;2,T", "md/cur/4T", "md/new/5:2,T"});
    files.write("md/cur/6.eml", "X-Mozilla-Status: 0008\n" + message("gone"));
    files.write("md/cur/7.eml", "X-Mozilla-Status: 0001\n" + message("7"));
    EXPECT_EQ(treeOf("md"), "md[2:2,S 4T 7]");
    EXPECT_EQ(openFolder("md")->itemCount(), 3);
}

}  // namespace
}  // namespace pelk
