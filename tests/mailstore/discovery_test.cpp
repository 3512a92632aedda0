// The mail of the mail programs, found in homes that are made up.

#include <sys/stat.h>
#include <unistd.h>

#include "mailstore/discovery/finders.h"
#include "mailstore/discovery/mail_discovery.h"
#include "mailstore/discovery/mozilla_prefs.h"
#include "tests/mailstore/mail_fixture.h"

namespace pelk {
namespace {

class DiscoveryTest : public MailTest {
 protected:
    std::string home = files.path() + "/home";
    UserPlaces places = userPlaces([this](const char* name) -> std::string {
        return name == std::string("HOME") ? home : name == std::string("USER") ? "jane" : "";
    });

    DiscoveryTest() { places.spool = home + "/spool"; }

    void write(const std::string& name, const std::string& content) const {
        files.write("home/" + name, content);
    }
    void link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, home + "/" + name);
    }
    /// Replaces "~/" in the text by the path of the home.
    std::string withHome(std::string text) const {
        for (std::size_t at = 0; (at = text.find("~/", at)) != std::string::npos;)
            text.replace(at, 1, home);
        return text;
    }
    /// A line for each entry: "program | account | path | folders bytes", or the fault at the end.
    std::string found() const {
        std::string text;
        for (const FoundMail& mail : findMail(places)) {
            const MailExtent extent = measureMail(mail, [] { return false; });
            if (extent.isNothing)
                continue;
            text += mail.program + " | " + mail.account + " | " + mail.path + " | ";
            text += extent.fault.empty()
                        ? std::to_string(extent.folders) + " " + std::to_string(extent.bytes) + "\n"
                        : extent.fault + "\n";
            if (extent.unreadable > 0)
                text += std::to_string(extent.unreadable) + ": " + extent.firstUnreadable + "\n";
        }
        for (std::size_t at = 0; (at = text.find(home, at)) != std::string::npos;)
            text.replace(at, home.size(), "~");
        return text;
    }
    /// Describes all files in the home, with everything that a write would change.
    std::string everything() const {
        std::string text;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(home)) {
            struct stat status {};
            EXPECT_EQ(::lstat(entry.path().c_str(), &status), 0);
            text += entry.path().string() + " " + std::to_string(status.st_mode) + " " +
                    std::to_string(status.st_size) + " " + std::to_string(status.st_mtim.tv_sec) +
                    "." + std::to_string(status.st_mtim.tv_nsec) + " " +
                    std::to_string(status.st_ctim.tv_nsec) + "\n";
        }
        return text;
    }

    /// A profile with the accounts 1, 2, ..., each of which has these lines "key", "value".
    void writeProfile(const std::string& directory,
                      const std::vector<std::string>& accounts) const {
        std::string prefs = "// Mozilla User Preferences\n";
        std::string keys;
        for (std::size_t i = 0; i < accounts.size(); ++i) {
            const std::string number = std::to_string(i + 1);
            keys += (i > 0 ? ",account" : "account") + number;
            prefs += "user_pref(\"mail.account.account" + number + ".server\", \"server" + number +
                     "\");\n";
            std::istringstream lines(withHome(accounts[i]));
            for (std::string line; std::getline(lines, line);)
                prefs += "user_pref(\"mail.server.server" + number + "." + line + ");\n";
        }
        write(directory + "/prefs.js",
              prefs + "user_pref(\"mail.accountmanager.accounts\", \"" + keys + "\");\n");
    }
};

const std::string kBox = mbox("one");
const std::string kSize = std::to_string(kBox.size());

TEST_F(DiscoveryTest, followsTheSettingsOfThunderbird) {
    write(".thunderbird/profiles.ini",
          "[General]\nVersion=2\n[Profile1]\r\nName=old\r\nIsRelative=0\r\nPath=" + home +
              "/elsewhere/old\r\n[Profile0]\nName=new\nIsRelative=1\nPath=abc.new\n");
    writeProfile(
        ".thunderbird/abc.new",
        {"type\", \"imap\"\nname\", \"jane@x.org\"\ndirectory-rel\", "
         "\"[ProfD]ImapMail/imap.x.org\"\ndirectory\", \"/gone\"",
         "type\", \"pop3\"\nuserName\", \"jane\"\nhostname\", \"pop.y.org\"\ndirectory\", "
         "\"~/moved\"\ndirectory-rel\", \"[ProfD]Mail/pop.y.org\"",
         "type\", \"imap\"\nname\", \"online\"\ndirectory-rel\", \"[ProfD]ImapMail/online\"",
         "type\", \"none\"\nname\", \"gone\"\ndirectory-rel\", \"[ProfD]Mail/gone\"",
         "name\", \"relative\"\ndirectory\", \".\"",
         "type\", \"rss\"\nname\", \"feeds\"\ndirectory-rel\", \"[ProfD]Mail/Feeds\"",
         "type\", \"pop3\"\nname\", \"to 2\"\ndeferred_to_account\", \"account2\"\n"
         "directory-rel\", \"[ProfD]Mail/Feeds\""});
    write(".thunderbird/abc.new/ImapMail/imap.x.org/INBOX", kBox);
    write(".thunderbird/abc.new/ImapMail/imap.x.org/INBOX.sbd/Work", kBox);
    write(".thunderbird/abc.new/ImapMail/online/INBOX.msf", "");
    write(".thunderbird/abc.new/Mail/Feeds/News", kBox);
    write("moved/Inbox/cur/1", message("two"));
    // The settings of this profile are lost.
    write("elsewhere/old/Mail/Local Folders/Archive", kBox);
    const FoundMail first{
        "Thunderbird", "", home + "/.thunderbird/abc.new/ImapMail/imap.x.org", {}, {}};
    EXPECT_EQ(measureMail(first, [] { return true; }).folders, 0U) << "it did not stop";
    EXPECT_EQ(found(),
              "Thunderbird | Local Folders | ~/elsewhere/old/Mail/Local Folders | 1 " + kSize +
                  "\nThunderbird | jane@x.org (new) | ~/.thunderbird/abc.new/ImapMail/imap.x.org | "
                  "2 " +
                  std::to_string(2 * kBox.size()) +
                  "\nThunderbird | jane@pop.y.org (new) | ~/moved | 1 " +
                  std::to_string(message("two").size()) +
                  "\nThunderbird | online (new) | ~/.thunderbird/abc.new/ImapMail/online | "
                  "Thunderbird keeps no messages of this account on this computer; they are on the "
                  "mail server.\n");
}

TEST_F(DiscoveryTest, namesTheDefaultFoldersOfThunderbird) {
    write(".thunderbird/profiles.ini", "[Profile0]\nIsRelative=1\nPath=p\n");
    writeProfile(".thunderbird/p",
                 {"type\", \"imap\"\nuserName\", \"j\"\nhostname\", \"x.org\"\ndirectory-rel\", "
                  "\"[ProfD]ImapMail/x\"\ntrash_folder_name\", \"INBOX/Gelöscht\"",
                  "type\", \"none\"\nuserName\", \"nobody\"\nhostname\", \"Local Folders\"\n"
                  "directory-rel\", \"[ProfD]Mail/Local Folders\"",
                  "type\", \"pop3\"\ndirectory\", \"/gone\"\ntrash_folder_name\", \"Away\""});
    write(".thunderbird/p/prefs.js", readSettingsFile(home + "/.thunderbird/p/prefs.js") +
                                         "user_pref(\"mail.default_sendlater_uri\", "
                                         "\"mailbox://nobody@Local%20Folders/For later\");\n");
    for (const char* const folder : {"ImapMail/x/INBOX", "ImapMail/x/INBOX.sbd/Gel&APY-scht",
                                     "Mail/Local Folders/For later", "Mail/Local Folders/Away"})
        write(std::string(".thunderbird/p/") + folder, kBox);
    MailStoreOptions options;
    options.purposes = purposesIn(findMail({home, home + "/.config", {}, {}, {}, {}}));
    std::string leftOut;
    const auto session = openMailSession({home + "/.thunderbird/p"}, options);
    const std::function<void(MailFolders&)> walk = [&](MailFolders& folders) {
        while (const auto folder = folders.next()) {
            for (const DefaultFolder kind : session->leftOutFolders())
                if (session->isDefaultFolder(*folder, kind))
                    leftOut += folder->name() + std::to_string(static_cast<int>(kind)) + " ";
            walk(*folder->folders());
        }
    };
    walk(*session->folders());
    EXPECT_EQ(leftOut,
              "Gel&APY-scht" + std::to_string(static_cast<int>(DefaultFolder::DeletedItems)) +
                  " For later" + std::to_string(static_cast<int>(DefaultFolder::Outbox)) + " ");
}

TEST_F(DiscoveryTest, knowsTheAddressesOfTheAccounts) {
    write(".thunderbird/profiles.ini", "[Profile0]\nIsRelative=1\nPath=p\n");
    write(".thunderbird/p/Mail/Box", kBox);
    writeProfile(".thunderbird/p", {"type\", \"none\"\ndirectory-rel\", \"[ProfD]Mail\""});
    write(".thunderbird/p/prefs.js",
          readSettingsFile(home + "/.thunderbird/p/prefs.js") +
              "user_pref(\"mail.identity.id2.useremail\", \"jane@x.org\");\n"
              "user_pref(\"mail.identity.id1.useremail\", \"Jane@y.org\");\n"
              "user_pref(\"mail.identity.id1.smtpServer\", \"smtp1\");\n");
    MailStoreOptions options;
    options.ownAddresses = ownAddressesIn(findMail(places));
    EXPECT_EQ(openMailSession({home + "/.thunderbird/p/Mail"}, options)->ownAddresses(),
              (std::vector<std::string>{"Jane@y.org", "jane@x.org"}));
}

TEST_F(DiscoveryTest, findsTheRelativesOfThunderbird) {
    for (const char* root :
         {"snap/thunderbird/common/.thunderbird", ".var/app/org.mozilla.Thunderbird/.thunderbird",
          ".mozilla/seamonkey", ".icedove", ".config/thunderbird"}) {
        write(root + std::string("/profiles.ini"), "[Profile0]\nName=a\nIsRelative=1\nPath=p\n");
        writeProfile(
            root + std::string("/p"),
            {"type\", \"none\"\nname\", \"Local\"\ndirectory-rel\", \"[ProfD]Mail/Local\""});
        write(root + std::string("/p/Mail/Local/Box"), kBox);
    }
    std::string programs;
    for (const FoundMail& mail : findMail(places))
        programs += mail.program + " " + mail.account + "\n";
    EXPECT_EQ(programs,
              "Thunderbird Local\nThunderbird Local\nIcedove Local\nSeaMonkey Local\nThunderbird "
              "Local\n");
}

TEST_F(DiscoveryTest, findsWhatTheProgramsOfDesktopsKeep) {
    write(".config/evolution/sources/u1.source",
          "[Data Source]\nDisplayName=jane@x.org\nDisplayName[de]=J\n[Mail Account]\n"
          "BackendName=imapx\n");
    write(".config/evolution/sources/u2.source",
          withHome("[Data Source]\nDisplayName=Old\n[Mail Account]\nBackendName=maildir\n"
                   "[Maildir Backend]\nPath=~/old\n"));
    write(".config/evolution/sources/u3.source", "[Data Source]\nDisplayName=Calendar\n");
    write(".cache/evolution/mail/u1/folders/notes", "none");
    write(".cache/evolution/mail/gone/folders/INBOX/cur/3f/1", message("a"));
    write(".local/share/evolution/mail/local/cur/1", message("a"));
    write("old/new/1", message("a"));
    write(".var/app/org.gnome.Evolution/data/evolution/mail/local/.Sent/cur/1", message("a"));
    write(".config/akonadi_maildir_resource_0rc",
          "[General]\nPath[$e]=$HOME/.local/share/local-mail/\n");
    write(".config/akonadi_mbox_resource_1rc", withHome("[General]\nPath=file://~/box\n"));
    write(".config/akonadi_imap_resource_2rc", "[network]\nImapServer=x.org\nUserName=jane\n");
    write(".config/akonadi/agent_config_akonadi_mbox_resource_1", "[Agent]\nName=My box\n");
    write(".local/share/local-mail/inbox/cur/1", message("a"));
    write("box", kBox);
    write(".local/share/geary/account_01/geary.db", "SQLite format 3");
    write(".config/geary/account_01/geary.ini", "[Metadata]\nversion=1\n[Account]\nlabel=Me\n");
    write("Library/Mail/V5/POP-jane@x.org/INBOX.mbox/notes", "none");
    write("Library/Mail/V5/U/INBOX.mbox/Messages/1.emlx", message("a"));
    write("Library/Mail/V5/MailData/Envelope Index", "none");
    const std::string one = " | 1 " + std::to_string(message("a").size()) + "\n";
    EXPECT_EQ(found(),
              "Evolution | On This Computer | ~/.local/share/evolution/mail/local" + one +
                  "Evolution | jane@x.org | ~/.cache/evolution/mail/u1/folders | Evolution keeps "
                  "no messages of this account on this computer; they are on the mail server.\n"
                  "Evolution | Old | ~/old" +
                  one + "Evolution | gone | ~/.cache/evolution/mail/gone/folders" + one +
                  "Evolution | On This Computer | "
                  "~/.var/app/org.gnome.Evolution/data/evolution/mail/local" +
                  one +
                  "KMail | jane@x.org | ~/.config/akonadi_imap_resource_2rc | KMail keeps the mail "
                  "of this account in a database of its own, which Pelk cannot read. The mail is "
                  "on the server, too: add that as a mail server.\n"
                  "KMail | local-mail | ~/.local/share/local-mail" +
                  one + "KMail | My box | ~/box | 1 " + kSize +
                  "\n"
                  "Geary | Me | ~/.local/share/geary/account_01/geary.db | "
                  "~/.local/share/geary/account_01/geary.db cannot be read: file is not a "
                  "database.\n"
                  "Apple Mail | POP-jane@x.org | ~/Library/Mail/V5/POP-jane@x.org | Apple Mail "
                  "keeps no messages of this account on this computer.\n"
                  "Apple Mail | U | ~/Library/Mail/V5/U" +
                  one);
}

TEST_F(DiscoveryTest, guessesWhereMailOftenLies) {
    write("Maildir/cur/1", message("a"));
    write("Mail/notes", "none");
    write("spool/jane", kBox);
    write("spool/other", kBox);
    link("Maildir", "mail");
    places.inbox = home + "/spool/jane";
    std::filesystem::create_directories(home + "/.mail/new");
    EXPECT_EQ(found(), "Mail folder | Maildir | ~/Maildir | 1 " +
                           std::to_string(message("a").size()) +
                           "\nSystem mailbox | jane | ~/spool/jane | 1 " + kSize + "\n");
    places.home.clear();
    EXPECT_EQ(found(), "");
}

/// Root may read everything, so tests of what may not be read are made as another user.
class AsNobody {
 public:
    AsNobody() : failed_(::geteuid() == 0 && ::seteuid(65534) != 0) {}
    ~AsNobody() { failed_ = ::getuid() == 0 && ::seteuid(0) != 0; }
    bool failed() const { return failed_; }

 private:
    bool failed_;
};

TEST_F(DiscoveryTest, tellsWhatCannotBeReadAndChangesNothing) {
    write(".thunderbird/profiles.ini", "[Profile0]\nIsRelative=1\nPath=p\n");
    writeProfile(".thunderbird/p", {"name\", \"a\"\ndirectory-rel\", \"[ProfD]Mail/a\"",
                                    "name\", \"b\"\ndirectory-rel\", \"[ProfD]Mail/b\"",
                                    "name\", \"c\"\ndirectory-rel\", \"[ProfD]Mail/c\""});
    for (const char* file :
         {"a/Inbox", "a/Deep/Box", "a/Deep/Shut/Box", "a/Shut", "b/Shut/Box", "c/Box"})
        write(std::string(".thunderbird/p/Mail/") + file, kBox);
    link(home + "/.thunderbird/p/Mail/a", ".thunderbird/p/Mail/a/Round");
    write(".mozilla/seamonkey/profiles.ini", "[Profile0]\nIsRelative=1\nPath=p\n");
    write(".mozilla/seamonkey/p/prefs.js", std::string(20 << 20, '"'));
    write(".betterbird/notes", "none");
    link("profiles.ini", ".betterbird/profiles.ini");
    for (const char* shut : {"a/Deep/Shut", "a/Shut", "b/Shut", "c"})
        ::chmod((home + "/.thunderbird/p/Mail/" + shut).c_str(), 0);
    const std::string before = everything();
    {
        const AsNobody nobody;
        ASSERT_FALSE(nobody.failed());
        const std::string mail = "Thunderbird | ";
        const std::string p = "~/.thunderbird/p/Mail/";
        const std::string shut = " cannot be read: Permission denied.\n";
        EXPECT_EQ(found(),
                  mail + "a | " + p + "a | 3 " + std::to_string(3 * kBox.size()) + "\n2: " + p +
                      "a/Shut" + shut + mail + "b | " + p + "b | " + p + "b/Shut" + shut + mail +
                      "c | " + p + "c | " + p + "c" + shut +
                      "Betterbird |  | ~/.betterbird/profiles.ini | ~/.betterbird/profiles.ini "
                      "cannot be read: Too many levels of symbolic links.\n"
                      "SeaMonkey |  | ~/.mozilla/seamonkey/p/prefs.js | "
                      "~/.mozilla/seamonkey/p/prefs.js cannot be read: it is too large for "
                      "settings.\n");
    }
    EXPECT_EQ(everything(), before);
    for (const char* shut : {"a/Deep/Shut", "b/Shut", "c"})
        ::chmod((home + "/.thunderbird/p/Mail/" + shut).c_str(), 0700);
}

TEST(MozillaPrefs, areReadAsFarAsTheyAreSound) {
    const std::string text =
        "user_pref(\"mail.a\", \"J\\u00e4ne \\\"J\\\" \\x41\\\\ \\n\");\r\n"
        "  user_pref( \"mail.b\" , 17 ) ;\nuser_pref(\"mail.c\", true);\nuser_pref(\"other\", 1);\n"
        "# user_pref(\"mail.d\", 1);\nuser_pref(\"mail.e\", \"cut\nuser_pref(\"mail.f\nuser_pref(\n"
        "user_pref(\"mail.g\", \"\\\nuser_pref(\"mail.h\", \"\\u\");user_pref(\"mail.b\", 18);";
    EXPECT_EQ(parseMozillaPrefs(text, "mail."), (MozillaPrefs{{"mail.a", "J\u00e4ne \"J\" A\\ \n"},
                                                              {"mail.b", "17"},
                                                              {"mail.c", "true"},
                                                              {"mail.h", ""}}));
    const std::string noise = std::string(100'000, '"') + "\\" + std::string(1, '\0') + "\n";
    EXPECT_TRUE(
        parseMozillaPrefs(noise + "user_pref(" + noise + "user_pref(\"" + noise, "").empty());
}

}  // namespace
}  // namespace pelk
