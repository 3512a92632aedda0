// The program as scripts see it: arguments in; output, messages and exit status out.

#include <fcntl.h>
#include <sys/file.h>

#include <regex>

#include "tests/cli/cli_fixture.h"

namespace pelk {
namespace {

TEST_F(CliTest, scansOnceAndListsWhatItFound) {
    const Outcome first = run("scan Inbox");
    EXPECT_EQ(first.output, "e-mails counted: 2\ncontacts: 3 (3 new)\nrelations: 2 (2 new)\n");
    EXPECT_EQ(first.errors, "");
    EXPECT_EQ(first.status, 0);
    const Outcome second = run("scan Inbox --json");
    EXPECT_EQ(second.output,
              "{\n    \"contacts\": 3,\n    \"mails\": 0,\n    \"newContacts\": 0,\n"
              "    \"newRelations\": 0,\n    \"relations\": 2\n}\n");
    EXPECT_NE(second.errors.find("Only e-mails that came after the last scan"), std::string::npos);
    EXPECT_EQ(run("contacts").output,
              "    1  Ann Smith (ann@a.example)\n"
              "    2  Bob (bob@b.example)\n"
              "    3  cy@c.example (cy@c.example)\n");
    for (const char* contact : {"1", "Ann@A.example"})
        EXPECT_EQ(run(std::string("relations ") + contact).output,
                  "strong      2      2  Bob\nmedium      1      3  cy@c.example\n");
    expectSays("relations 3 --json", "\"name\": \"Ann Smith\"");
}

TEST_F(CliTest, scansSinceADateAndSaysWhoWasLeftOut) {
    folder.write("Post/Inbox", kMail);
    folder.write("Post/Trash", std::string(kMail) + kMail);
    folder.write("Post/More",
                 "From x Tue Mar  4 09:12:00 2025\nFrom: O'Hara <o'h@x>\nTo: bob@b.example\n\n\n");
    folder.write("Post/old.pst", "!BDN");
    const std::string said =
        "left out: Post/old.pst: mail of a kind that Pelk cannot read\n"
        "left out: Trash (4 e-mails)\nleft out: 1 person with an apostrophe in the address\n";
    EXPECT_TRUE(run("scan Post").output.ends_with("\nrelations: 2 (2 new)\n" + said));
    expectSays("scan Post --since 2025-03-04", "counted: 3\n");
    const std::string json = run("scan Post --json --since 2025-03-04T09:12:00").output;
    EXPECT_NE(json.find("\"mails\": 1,"), std::string::npos) << json;
    EXPECT_LT(json.find("\"relations\""), json.find("\"skipped\"")) << json;
    for (const char* date : {"2025-02-30", "yesterday", "2025-03-04T25:00:00"})
        expectRefused("scan Post --since " + std::string(date), 2,
                      "option --since takes a date, YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS; see pelk "
                      "--help");
}

TEST_F(CliTest, countsASecondMailboxAndNoCopy) {
    const std::string other =
        "From x Tue Mar  4 09:12:00 2024\nFrom: cy@c.example\nTo: bob@b.example\n"
        "Message-ID: <1@c.example>\n\n\n";
    folder.write("Other/Inbox", other);
    folder.write("Other/All", other + other);
    run("scan Inbox");
    const std::string output = run("scan Other").output;
    EXPECT_TRUE(output.starts_with("e-mails counted: 2\n")) << output;
    EXPECT_TRUE(output.ends_with("Other: counted for the first time\ncopies in other folders: 1\n"))
        << output;
    expectSays("scan Inbox Other", "e-mails counted: 0\n");
    std::filesystem::rename(folder.path() + "/Other", folder.path() + "/Moved");
    expectSays("scan Moved", "\nMoved: recognised, counted since ");
    expectSays("scan Moved --since 2024-01-01 --copies", "counted: 3\n");
}

TEST_F(CliTest, dumpsAndLoadsAPlainDocument) {
    run("scan Inbox");
    const std::string dump = run("dump").output;
    EXPECT_EQ(dump.substr(0, dump.find(" date=")),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<pelkDB");
    EXPECT_NE(dump.find("\n<relation part1=\"1\" part2=\"2\" weight=\"2\"/>\n"), std::string::npos);
    const std::string before = contentOf(database);
    std::string edited = dump;
    edited.replace(edited.find("Ann Smith"), 9, "Ann Jones");

    const Outcome loaded = run("load -", edited);
    EXPECT_EQ(loaded.status, 0) << loaded.errors;
    EXPECT_EQ(loaded.output,
              "contacts: 3\nrelations: 2\nprevious database: data/pelk/pelk.db.old\n");
    EXPECT_EQ(contentOf(database + ".old"), before);
    EXPECT_EQ(run("dump").output, edited);
    folder.write("original.xml", dump);
    EXPECT_EQ(run("load original.xml").status, 0);
    EXPECT_EQ(contentOf(database), before);
    EXPECT_EQ(run("export copy.db").status, 0);
    EXPECT_EQ(contentOf(folder.path() + "/copy.db"), before);

    edited.replace(edited.find("UTF-8"), 5, "UTF-16");
    std::string wide = "\xFF\xFE";
    for (const char c : edited)
        wide += {c, '\0'};
    EXPECT_EQ(run("load -", wide).status, 0);
}

TEST_F(CliTest, refusesADocumentThatIsNotSoundAndGoesOnBesideADamagedDatabase) {
    run("scan Inbox");
    const std::string before = contentOf(database);
    std::string twice = run("dump").output;
    twice.replace(twice.find("id=\"2\""), 6, "id=\"1\"");
    for (const std::string& bad : {std::string("<pelkDB"), std::string("<other/>"), twice}) {
        const Outcome outcome = run("load -", bad);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(outcome.errors.starts_with("pelk: The document - cannot be used. "));
    }
    EXPECT_EQ(contentOf(database), before);

    folder.write("data/pelk/pelk.db", "no database");
    expectRefused("contacts", 1,
                  "The file data/pelk/pelk.db cannot be used. It does not begin as a database file "
                  "does.");
    EXPECT_EQ(contentOf(database), "no database");
    expectSays("scan Inbox", "data/pelk/pelk.db.damaged");
    EXPECT_EQ(contentOf(database + ".damaged"), "no database");
}

TEST_F(CliTest, createsNothingBeforeThereIsSomethingToSave) {
    for (const char* question :
         {"contacts", "relations 1", "domains", "details 1 2", "links 1 2", "domain-links a b",
          "dump", "thresholds", "delete-domain a", "export copy.db"})
        EXPECT_NE(run(question).status, 2) << question;
    for (const char* change : {"rename 1 Ann", "delete 1", "merge 1 2 --name A", "import none"})
        EXPECT_EQ(run(change).status, 1) << change;
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/data"));
    EXPECT_EQ(run("thresholds 60 7").status, 0);
    EXPECT_EQ(run("thresholds").output, "strong: 60\nweak: 7\n");
}

TEST_F(CliTest, listsTheMailOfMailPrograms) {
    environment =
        "-u XDG_CONFIG_HOME -u XDG_DATA_HOME -u XDG_CACHE_HOME -u MAIL USER=nobody-here "
        "HOME=" +
        folder.path() + "/home";
    EXPECT_EQ(run("stores").output, "No mail was found on this computer.\n");
    EXPECT_EQ(run("stores --json").output, "[\n]\n");
    folder.write("home/.thunderbird/profiles.ini", "[Profile0]\nIsRelative=1\nPath=p\n");
    folder.write("home/.thunderbird/p/Mail/M\x1b[31m\u00e4/Inbox", kMail);
    folder.write("home/.thunderbird/p/ImapMail/empty/notes", "none");
    const Outcome table = run("stores");
    EXPECT_EQ(table.status, 0);
    EXPECT_EQ(table.errors, "");
    const std::string home = folder.path() + "/home/.thunderbird/p/";
    EXPECT_EQ(std::regex_replace(table.output, std::regex("  20..-..-..  "), "  DAY  "),
              "PROGRAM      ACCOUNT  FOLDERS   SIZE  CHANGED     PATH\n"
              "Thunderbird  M [31m\u00e4        1  250 B  DAY  " +
                  home + "Mail/M [31m\u00e4\n" +
                  "Thunderbird  empty          -      -  -           " + home +
                  "ImapMail/empty\n    " + home +
                  "ImapMail/empty holds no mail that can be read: neither an mbox, nor a Maildir, "
                  "nor message files.\n");
    expectSays("stores --json", "\"fault\": \"" + home + "ImapMail/empty holds no mail");
    expectSays("stores --json", "\"readable\": true");
}

TEST_F(CliTest, refusesInOneLine) {
    run("scan Inbox");
    expectRefused("relations nobody@x", 1, "There is no contact nobody@x.");
    expectRefused("relations 99", 1, "There is no contact 99.");
    expectRefused("export no/copy.db", 1,
                  "no/copy.db cannot be written: No such file or directory.");
    expectRefused("contacts >/dev/full", 1, "Standard output cannot be written.");
    EXPECT_EQ(run("scan none").status, 1);
    expectRefused("scan", 2, "pelk scan takes at least one operand; see pelk --help");
    expectRefused("dump more", 2, "pelk dump takes no operands; see pelk --help");
    expectRefused("contacts --colour", 2, "unknown option --colour; see pelk --help");
    expectRefused("contacts --outbox", 2, "option --outbox needs a value; see pelk --help");
    expectSays("--help", "pelk relations CONTACT");
    EXPECT_EQ(run("--version").output, "Pelk " PELK_VERSION "\n");
}

TEST_F(CliTest, listsDomainsAndDetails) {
    run("scan Inbox");
    EXPECT_EQ(run("domains").output, "example/\n");
    EXPECT_EQ(run("domains Example").output, "a/\nb/\nc/\n");
    EXPECT_EQ(run("domains a.example").output, "ann (Ann Smith)\n");
    expectSays("domains a.example --json", "\"address\": \"ann@a.example\"");
    EXPECT_EQ(run("domains --json").output.find("address"), std::string::npos);
    EXPECT_EQ(run("details 2 ann@a.example").output,
              "Bob - Ann Smith\nweight: 2\n2 emails have been exchanged between these contacts, "
              "while in the most strong relation 2 emails have been exchanged.\n");
    expectSays("details 1 3 --json", "\"strongest\": 2");
    expectRefused("domains nowhere", 1, "There is no domain nowhere.");
    expectRefused("details 2 3", 1, "There is no relation between 2 and 3.");
}

TEST_F(CliTest, editsContactsAndThresholds) {
    run("scan Inbox");
    EXPECT_EQ(run("rename 2 'Bob B'").output, "    2  Bob B (bob@b.example)\n");
    EXPECT_EQ(run("thresholds 40 40").output, "strong: 40\nweak: 40\n");
    run("thresholds 60 7");
    EXPECT_EQ(run("thresholds").output, "strong: 60\nweak: 7\n");
    EXPECT_FALSE(std::filesystem::exists(database + ".bak"));
    const std::string before = contentOf(database);

    expectRefused("rename 2 ''", 1, "A contact cannot be given an empty name.");
    expectRefused("delete 1 nobody@x", 1, "There is no contact nobody@x.");
    expectRefused("delete-domain '' --yes", 1, "The domain is empty.");
    expectRefused("delete-domain nowhere", 1, "No contact has an address that ends in nowhere.");
    expectRefused("merge 1 2", 2, "pelk merge needs --name NAME; see pelk --help");
    expectRefused("merge 1 ann@a.example --name X", 1, "These are all the same contact.");
    expectRefused("thresholds 50", 2,
                  "pelk thresholds takes both thresholds or none; see pelk --help");
    expectRefused("thresholds 50 101", 1,
                  "A threshold must be a whole number from 0 to 100, not 101.");
    expectRefused(
        "thresholds 5 50", 1,
        "Erroneous Action: A strong relation must always have more exchanged e-mails than "
        "that of a weak relation. Please apply a different configuration.");
    const Outcome listed = run("delete-domain B.example");
    EXPECT_EQ(listed.output, "    2  Bob B (bob@b.example)\n");
    EXPECT_NE(listed.errors, "");
    EXPECT_EQ(contentOf(database), before);

    EXPECT_EQ(run("merge 3 2 --name 'Cy B'").output, "    3  Cy B (cy@c.example/bob@b.example)\n");
    EXPECT_EQ(contentOf(database + ".bak"), before);
    EXPECT_EQ(run("relations 1").output, "strong      3      3  Cy B\n");
    EXPECT_EQ(run("delete-domain b.example --yes").output,
              "    3  Cy B (cy@c.example/bob@b.example)\n"
              "contacts deleted: 1\nrelations deleted: 1\n");
    expectSays("delete 1 1 --json", "\"name\": \"Ann Smith\"");
    EXPECT_EQ(run("contacts").output, "");
    EXPECT_NE(contentOf(database + ".bak"), before);
}

TEST_F(CliTest, changesNothingWhileAnotherProgramHoldsTheDatabase) {
    run("scan Inbox");
    const int held = ::open((folder.path() + "/data/pelk").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    for (const char* change :
         {"scan Inbox", "rename 1 Ann", "delete 1", "delete-domain a.example --yes",
          "merge 1 2 --name Ann", "thresholds 50 5"})
        expectRefused(change, 1,
                      "Another Pelk is using the database in data/pelk. Close it first.");
    for (const char* question : {"delete-domain a.example", "thresholds", "domains"})
        EXPECT_EQ(run(question).status, 0) << question;
    ::close(held);
}

TEST_F(CliTest, countsTheFoldersThatAreAskedFor) {
    for (const char* name : {"Letters", "Rubbish", "Trash", "Drafts", "Junk"})
        folder.write(std::string("Post/") + name, kMail);
    expectSays("scan Post --deleted Rubbish --outbox letters", "counted: 2\n");
    std::filesystem::remove_all(folder.path() + "/data");
    expectSays("scan Post --drafts --junk", "counted: 8\n");
}

TEST_F(CliTest, printsTheStrongestRelationsWithoutADisplay) {
    expectSays("Inbox", "There is no display");
    expectSays("Inbox", "strong      2  Ann Smith - Bob\n");
}

TEST_F(CliTest, importsWithAnswersAndDeletesTheDatabase) {
    run("scan Inbox");
    run("export copy.db");
    EXPECT_EQ(run("import copy.db").output, "contacts: 3\nrelations: 2\n");
    expectSays("relations 1", "strong      4      2  Bob");
    EXPECT_TRUE(std::filesystem::exists(folder.path() + "/data/pelk/pelkdb.xml"));
    // The copy's merged contact has the addresses of two contacts here.
    const std::string twoInOne = run("dump").output;
    run("merge --name Both 1 2");
    run("export merged.db");
    run("load -", twoInOne);
    const std::string before = contentOf(database);
    expectSays("import merged.db --ok", "Nothing was imported.");
    EXPECT_EQ(contentOf(database), before);
    expectSays("import merged.db", "under the name Both: Shall I continue? Cancel");
    expectRefused("import Inbox", 1,
                  "Error while loading file Inbox: The file Inbox cannot be used. It does not "
                  "begin as a database file does.");

    EXPECT_EQ(run("delete-database").status, 1);
    EXPECT_EQ(run("delete-database --yes").status, 0);
    EXPECT_EQ(run("contacts").output, "");
}

/// Contains names that a terminal would interpret, addresses that queries cannot contain, and
/// everything else that a document may contain.
constexpr const char* kOdd =
    "<pelkDB date='2026-01-01T00:00:00' totalMails='3' totalContacts='2' maxInd='50' minInd='5'>"
    "<contacts><contact id='1' name='&#x9b;31m&#x202e;A&#x7f;&#10;&#9; > &quot; &amp; &lt;b>'>"
    "<emails><email value=\"o'hara@x\"/><email value='a@\xC2\x9B.x'/><email value='a@y'/>"
    "<email value='a@y'/></emails>text<![CDATA[ > \" ]]></contact>"
    "<contact id='2' name='\xE2\x81\xA6"
    "B'><emails><email value='b@y.'/><email value='@y'/>"
    "</emails></contact></contacts>"
    "<relations total='0'><relation part1='1' part2='2' weight='0'/></relations></pelkDB>";

/// Whether a terminal would obey part of the text: a control character, or one that turns the order
/// of writing.
bool isObeyed(const std::string& text) {
    return std::regex_search(
        text, std::regex("[\\x01-\\x09\\x0B-\\x1F\\x7F]|\xC2[\x80-\x9F]|\xE2\x80[\xAA-\xAE]|"
                         "\xE2\x81[\xA6-\xAF]"));
}

TEST_F(CliTest, printsNothingThatATerminalObeysAndReadsWhatItDumps) {
    ASSERT_EQ(run("load -", kOdd).errors, "");
    const std::string before = contentOf(database);
    for (const char* command :
         {"contacts", "contacts --json", "relations 2", "relations 2 --json", "details 1 2",
          "domains", "domains x", "domains y --json", "links 1 2", "domain-links 'a@y' '@y'",
          "delete-domain y", "dump", "load '\x1b[31m'", "'\x9b\xc2\x9b'", "scan '\x1b\xc2\x9b'"}) {
        const Outcome outcome = run(command);
        EXPECT_NE(outcome.output + outcome.errors, "") << command;
        EXPECT_FALSE(isObeyed(outcome.output + outcome.errors)) << command;
    }
    expectSays("contacts --json", "\"\\u009b31m\\u202eA\\u007f\\n\\t > ");
    EXPECT_EQ(run("load -", run("dump").output).status, 0);
    EXPECT_EQ(contentOf(database), before);
}

TEST_F(CliTest, knowsAddressesWithAnApostrophe) {
    run("load -", kOdd);
    EXPECT_EQ(run("relations \"O'Hara@x\"").output.substr(0, 12), "weak        ");
    EXPECT_EQ(run("rename \"o'hara@x\" Pat").output, "    1  Pat (o'hara@x/a@ .x/a@y/a@y)\n");
    run("export copy.db");
    EXPECT_EQ(run("import copy.db").errors, "");
    expectRefused("links 1 \"o'brian@x\"", 1, "There is no contact o'brian@x.");
    EXPECT_EQ(run("merge --name Both \"o'hara@x\" 2").status, 0);
    EXPECT_EQ(run("delete \"o'hara@x\"").status, 0);
}

TEST_F(CliTest, deletesNoMoreThanADomainNames) {
    run("load -", kOdd);
    expectRefused("delete-domain .y --yes", 1, "The domain .y begins with an empty label.");
    expectRefused("delete-domain @nowhere --yes", 1, "No contact has the address @nowhere.");
    expectRefused("domain-links '' y", 1, "The domain is empty.");
    expectSays("delete-domain @y --yes", "contacts deleted: 1\n");
    EXPECT_EQ(run("relations \"o'hara@x\"").status, 0) << "a@y stays";
}

TEST_F(CliTest, saysWhatALoadedDocumentHadWrong) {
    std::string document = kOdd;
    document.replace(document.find("totalContacts='2'"), 17, "totalContacts='1'");
    folder.write("in.xml", document);
    expectSays("load in.xml", "set to 2, the highest id");
    const std::string before = contentOf(database);
    document.replace(document.find("2026-01-01"), 10, "2026-02-30");
    folder.write("in.xml", document);
    expectSays("load in.xml", "date \"2026-02-30T");
    EXPECT_EQ(contentOf(database), before);

    run("export copy.db");
    std::filesystem::create_directory(folder.path() + "/data/pelk/pelkdb.xml");
    const Outcome imported = run("import copy.db");
    EXPECT_EQ(imported.status, 0) << "it is done, though its plain copy is missing";
    EXPECT_NE(imported.errors.find("pelkdb.xml"), std::string::npos);
}

}  // namespace
}  // namespace pelk
