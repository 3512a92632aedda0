// Writes the seed corpus of each fuzz target: parts of the example mail, and the databases that
// result from scanning it.
//
// fuzz_seeds MAIL FOLDER

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "db/database_cipher.h"
#include "fuzz/mail_target.h"
#include "history/history_document.h"
#include "platform/desktop/openssl_crypto.h"

namespace pelk {
namespace {

/// Longer seeds slow the fuzzer down.
constexpr std::size_t kLongest = 4096;

class Seeds {
 public:
    explicit Seeds(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void addMailFile(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        if (text.empty())
            return;
        const std::string start = text.substr(0, kLongest);
        write(text.starts_with("From ") ? "mbox" : "message", start);
        write("stores", std::string(1, '\0') + std::to_string(start.size()) + "\n" + start +
                            "<plist><dict><key>flags</key><integer>1</integer></dict></plist>");
        const std::string header = start.substr(0, start.find("\n\n"));
        write("header", header);
        const std::size_t from = header.find("\nFrom: ");
        if (from != std::string::npos)
            write("addresses", header.substr(from + 7, 300));
        addAnswer(header);
        addScanOf(path.string());
    }

    /// Writes the database of a Geary account with one message.
    void addGearyFile() {
        sqlite3* database = nullptr;
        sqlite3_open(":memory:", &database);
        sqlite3_exec(database,
                     "PRAGMA page_size=512;"
                     "CREATE TABLE FolderTable (id INTEGER PRIMARY KEY, name, parent_id);"
                     "CREATE TABLE MessageLocationTable (message_id, folder_id, ordering,"
                     " remove_marker);"
                     "CREATE TABLE MessageTable (id INTEGER PRIMARY KEY, header, body, flags,"
                     " internaldate_time_t, from_field, sender, reply_to, to_field, cc, bcc,"
                     " subject, message_id, date_field);"
                     "INSERT INTO FolderTable VALUES (1, 'INBOX', NULL);"
                     "INSERT INTO MessageLocationTable VALUES (1, 1, 1, 0);"
                     "INSERT INTO MessageTable (id, header) VALUES (1, 'From: a@x');",
                     nullptr, nullptr, nullptr);
        sqlite3_int64 size = 0;
        unsigned char* const bytes = sqlite3_serialize(database, "main", &size, 0);
        write("stores", "\1" + std::string(reinterpret_cast<const char*>(bytes),
                                           static_cast<std::size_t>(size)));
        sqlite3_free(bytes);
        sqlite3_close(database);
    }

    /// Writes what Thunderbird, Evolution and KMail would.
    void addSettings() {
        write("settings",
              "user_pref(\"mail.accountmanager.accounts\", \"account1\");\n"
              "user_pref(\"mail.account.account1.server\", \"server1\");\n"
              "user_pref(\"mail.server.server1.type\", \"imap\");\n"
              "user_pref(\"mail.server.server1.name\", \"J\\u00e4ne\");\n"
              "user_pref(\"mail.server.server1.directory-rel\", \"[ProfD]..\");\n");
        write("settings",
              "[Data Source]\nDisplayName=a\n[Mail Account]\nBackendName=maildir\n"
              "[Maildir Backend]\nPath=/tmp\n[General]\nPath[$e]=$HOME/\n");
    }

    /// Writes the history of two people and a mailing list.
    void addHistory() {
        HistoryContent content;
        content.date = "2024-03-01T08:00:00";
        content.ownAddresses = {"ann@a"};
        content.stores.add({"/mail", content.date, content.date, {}, {1, 2}});
        for (const Day day : {20231231, 20240131, 20240229}) {
            content.history.countMail("ann@a", "bob@b", day);
            content.history.countMail("bob@b", "users@lists.b", day);
        }
        content.history.record("ann@a") = {3, 0, "", "", 3, true};
        content.history.record("bob@b") = {3, 1, "Precedence", "", 0, false};
        content.history.record("users@lists.b").listBy = "List-Post";
        write("history", textOf(content, createPugiDocument));
    }

    /// Writes random bytes, for targets that accept any bytes.
    void addRandomBytes(const char* target) {
        std::mt19937 random(1);
        for (std::size_t size = 16; size <= 512; size += 16) {
            std::string bytes(size, '\0');
            std::generate(bytes.begin(), bytes.end(),
                          [&random] { return static_cast<char>(random()); });
            write(target, bytes);
        }
    }

 private:
    /// Writes the answer of a mail server that shows such a message.
    void addAnswer(const std::string& header) {
        write("answers",
              std::string("?* 1 FETCH (UID 1 FLAGS (\\Seen) INTERNALDATE ") +
                  "\" 2-Jan-2021 03:04:05 +0000\" BODYSTRUCTURE ((\"TEXT\" \"PLAIN\" NIL " +
                  "NIL NIL \"7BIT\" 1 1) \"MIXED\") BODY[HEADER.FIELDS (FROM)] {" +
                  std::to_string(header.size()) + "}\r\n" + header + ")\r\n7 OK\r\n");
    }

    void addScanOf(const std::string& path) {
        const std::unique_ptr<Database> database = openDocument(kFirstStartDocument);
        try {
            NoProgress progress;
            Scanner(*database, language(), progress).scan(*openMailSession({path}, {}));
        } catch (const Error&) {
            return;
        }
        const std::string xml = database->xml();
        if (xml.size() > kLongest)
            return;
        write("document", xml);
        write("import", xml);
        write("network", xml);
        write("cipher", xml);
        const OpensslCrypto crypto;
        DatabaseCipher cipher(crypto);
        cipher.setKey(kFuzzKey);
        std::string text;
        cipher.encrypt(xml, [&text](std::string_view piece) { text += piece; });
        write("cipher", text);
    }

    void write(const std::string& target, std::string_view content) {
        std::filesystem::create_directories(folder_ / target);
        std::ofstream(folder_ / target / std::to_string(++count_), std::ios::binary) << content;
    }

    const std::filesystem::path folder_;
    int count_ = 0;
};

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    pelk::Seeds seeds(argv[2]);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[1]))
        if (entry.is_regular_file())
            seeds.addMailFile(entry.path());
    seeds.addGearyFile();
    seeds.addSettings();
    seeds.addHistory();
    seeds.addRandomBytes("edits");
    return 0;
}
