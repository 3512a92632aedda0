// The program as scripts see it: arguments in; output, messages and exit status out.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "tests/support/temporary_folder.h"

namespace pelk {
namespace {

constexpr const char* kMail =
    "From ann@a.example Tue Mar  4 09:12:00 2025\n"
    "From: Ann Smith <ann@a.example>\nTo: Bob <BOB@b.example>, cy@c.example\nSubject: one\n\nHi\n\n"
    "From bob@b.example Tue Mar  4 09:13:00 2025\n"
    "From: Bob <bob@b.example>\nTo: Ann Smith <ann@a.example>\nSubject: two\n\nHi\n\n";

struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

class CliTest : public ::testing::Test {
 protected:
    TemporaryFolder folder;
    std::string box = folder.write("Inbox", kMail);
    std::string database = folder.path() + "/data/pelk/pelk.db";

    /// Runs the program with its database in the test's own folder.
    Outcome run(const std::string& arguments, const std::string& input = "") {
        const std::string errors = folder.path() + "/errors";
        const std::string command = "cd " + folder.path() +
                                    " && env -u DISPLAY -u WAYLAND_DISPLAY"
                                    " -u QT_QPA_PLATFORM " PELK_PROGRAM " --data data " +
                                    arguments + " 2>" + errors + " <" +
                                    folder.write("input", input);
        Outcome outcome;
        std::FILE* const pipe = ::popen(command.c_str(), "r");
        std::array<char, 4096> buffer;
        while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe))
            outcome.output.append(buffer.data(), size);
        const int status = ::pclose(pipe);
        outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        outcome.errors = contentOf(errors);
        return outcome;
    }
    static std::string contentOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void expectRefused(const std::string& arguments, int status, const std::string& error) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, status) << arguments;
        EXPECT_EQ(outcome.errors, "pelk: " + error + "\n");
        EXPECT_EQ(outcome.output, "");
    }
};

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
    const std::string relations = "strong      2      2  Bob\nmedium      1      3  cy@c.example\n";
    EXPECT_EQ(run("relations 1").output, relations);
    EXPECT_EQ(run("relations Ann@A.example").output, relations);
    EXPECT_NE(run("relations 3 --json").output.find("\"name\": \"Ann Smith\""), std::string::npos);
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
}

TEST_F(CliTest, loadsADocumentThatIsReallyUtf16) {
    const std::string text =
        "<?xml version='1.0' encoding='UTF-16'?><pelkDB "
        "date='2020-01-01T00:00:00' totalMails='0' totalContacts='0' "
        "maxInd='50' minInd='5'><contacts/><relations total='0'/></pelkDB>";
    std::string wide = "\xFF\xFE";
    for (const char c : text)
        wide += {c, '\0'};
    EXPECT_EQ(run("load -", wide).status, 0);
}

TEST_F(CliTest, refusesADocumentThatIsNotSound) {
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
}

TEST_F(CliTest, goesOnBesideADamagedDatabase) {
    folder.write("data/pelk/pelk.db", "no database");
    const Outcome outcome = run("contacts");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.errors.find("data/pelk/pelk.db.damaged"), std::string::npos);
    EXPECT_EQ(contentOf(database + ".damaged"), "no database");
}

TEST_F(CliTest, refusesInOneLine) {
    run("scan Inbox");
    expectRefused("relations nobody@x", 1, "There is no contact nobody@x.");
    expectRefused("relations 99", 1, "There is no contact 99.");
    expectRefused("export no/copy.db", 1,
                  "no/copy.db.new cannot be written: No such file or directory.");
    expectRefused("contacts >/dev/full", 1, "Standard output cannot be written.");
    EXPECT_EQ(run("scan none").status, 1);
    expectRefused("scan", 2, "pelk scan takes at least one operand; see pelk --help");
    expectRefused("dump more", 2, "pelk dump takes nothing more; see pelk --help");
    expectRefused("contacts --colour", 2, "unknown option --colour; see pelk --help");
    expectRefused("contacts --outbox", 2, "option --outbox needs a value; see pelk --help");
    EXPECT_NE(run("--help").output.find("pelk relations CONTACT"), std::string::npos);
    EXPECT_EQ(run("--version").output, "Pelk " PELK_VERSION "\n");
}

TEST_F(CliTest, leavesOutTheFoldersThatAreNamed) {
    folder.write("Post/Letters", kMail);
    folder.write("Post/Rubbish", kMail);
    folder.write("Post/Trash", kMail);
    EXPECT_NE(run("scan Post --deleted Rubbish --outbox letters").output.find("counted: 2\n"),
              std::string::npos);
}

TEST_F(CliTest, printsTheStrongestRelationsWithoutADisplay) {
    const Outcome outcome = run("Inbox");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.errors.find("There is no display"), std::string::npos);
    EXPECT_NE(outcome.output.find("strong      2  Ann Smith - Bob\n"), std::string::npos);
}

}  // namespace
}  // namespace pelk
