#pragma once
// Servers under the control of a test, and sessions that read their mail.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utime.h>

#include <mutex>
#include <sstream>
#include <vector>

#include "mailstore/imap/imap_session.h"
#include "scan/scanner.h"
#include "tests/imap/dovecot.h"
#include "tests/mailstore/mail_fixture.h"
#include "tests/support/core_platform.h"
#include "tests/support/memory_mail.h"
#include "tests/support/message_of.h"

namespace pelk {

inline constexpr const char* kPassword = "s3cret-word";

inline std::unique_ptr<MailSession> openAt(const std::string& address,
                                           const std::string& password = kPassword) {
    ImapServerOptions options;
    options.secret = [password] { return password; };
    options.patience.limit = std::chrono::seconds(2);
    options.pause = std::chrono::milliseconds(1);
    return openImapSession(readImapAddress(address), std::move(options), {});
}

inline std::unique_ptr<MailSession> openAt(std::uint16_t port, const std::string& folder = {}) {
    return openAt("imap://jane@127.0.0.1:" + std::to_string(port) + folder);
}

/// Returns all folders with their mail, followed by the message of the error, if any.
inline std::string mailAt(const std::string& address, const std::string& password = kPassword) {
    std::string found;
    const std::string error = messageOf(
        [&] { found = describe(*openAt(address, password)->folders()->next()->folders()); });
    return found + error;
}

inline void addMail(const Dovecot& dovecot, const std::string& file, const std::string& text,
                    std::time_t came = 1'700'000'000) {
    const std::string path = dovecot.folder.write("mail/" + file, text);
    const utimbuf times{came, came};
    ::utime(path.c_str(), &times);
}

inline void addMails(const Dovecot& dovecot, int first, int last) {
    for (int number = first; number <= last; ++number)
        addMail(dovecot, "new/" + std::to_string(1'600'000'000 + number) + ".x.h",
                "From: p" + std::to_string(number) + "@x.org\nTo: bob@x.org\nMessage-ID: <" +
                    std::to_string(number) + "@x>\nSubject: " + std::to_string(number) +
                    "\n\nText\n");
}

/// A database in memory, and scans into it.
class Counting {
 public:
    CorePlatform core;
    std::unique_ptr<Database> database = core.storage().loadDatabase().database;
    FolderLog log;

    Counting() {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        ::localtime_r(&now, &local);
        core.clock.time = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                           local.tm_hour,        local.tm_min,     local.tm_sec};
    }

    ScanOutcome scan(MailSession& session, const ScanOptions& options = {}) {
        return scanAndSave(*database, core.storage(), core.platform(), session, log, options);
    }
    ScanOutcome scan(std::uint16_t port) { return scan(*openAt(port)); }
    /// Returns the document without its date.
    std::string document() {
        database->setDate("");
        return database->xml();
    }
};

/// Passes data between client and server and records what the client sends. Cuts each connection
/// after `lines` lines from the server; 0 means never.
class Proxy {
 public:
    explicit Proxy(std::uint16_t port, int lines = 0)
        : server_([this, port, lines](const Socket& client) { pass(client, port, lines); }) {}

    std::uint16_t port() const { return server_.port(); }
    int connections() const { return server_.connections(); }
    /// Returns the commands since the last call, without their tags.
    std::vector<std::string> commands() {
        const std::lock_guard guard(lock_);
        std::istringstream said(std::exchange(said_, {}));
        std::vector<std::string> all;
        for (std::string line; std::getline(said, line);)
            all.push_back(line.substr(line.find(' ') + 1, line.size() - line.find(' ') - 2));
        return all;
    }

 private:
    void pass(const Socket& client, std::uint16_t port, int lines) {
        const Socket server(connectTo(port));
        for (pollfd ends[2] = {{client.get(), POLLIN, 0}, {server.get(), POLLIN, 0}};
             ::poll(ends, 2, -1) > 0;) {
            if (ends[0].revents != 0 && !fromClient(client, server))
                return;
            if (ends[1].revents != 0 && !fromServer(server, client, lines))
                return;
        }
    }
    bool fromClient(const Socket& client, const Socket& server) {
        const std::string bytes = client.receive();
        const std::lock_guard guard(lock_);
        said_ += bytes;
        return !bytes.empty() && server.send(bytes);
    }
    static bool fromServer(const Socket& server, const Socket& client, int& lines) {
        std::string bytes = server.receive();
        bool goesOn = !bytes.empty();
        for (std::size_t at = 0; lines > 0 && (at = bytes.find('\n', at)) != std::string::npos;)
            if (++at; --lines == 0) {
                bytes.resize(at);
                goesOn = false;
            }
        return client.send(bytes) && goesOn;
    }

    std::mutex lock_;
    std::string said_;
    LoopbackServer server_;
};

/// A server whose answers a test determines.
class ScriptedServer {
 public:
    /// `answer` gets a command without its tag and returns the text to send before "OK"; empty text
    /// for the default.
    explicit ScriptedServer(std::function<std::string(const std::string& command)> answer)
        : server_([answer = std::move(answer)](const Socket& client) { talk(client, answer); }) {}

    std::uint16_t port() const { return server_.port(); }
    int connections() const { return server_.connections(); }

 private:
    static void talk(const Socket& client,
                     const std::function<std::string(const std::string&)>& answer) {
        client.send("* OK ready\r\n");
        std::string said;
        for (std::string bytes; !(bytes = client.receive()).empty();) {
            said += bytes;
            for (std::size_t end; (end = said.find("\r\n")) != std::string::npos;) {
                const std::string tag = said.substr(0, said.find(' '));
                const std::string command = said.substr(tag.size() + 1, end - tag.size() - 1);
                said.erase(0, end + 2);
                std::string reply = answer(command);
                if (reply.empty() && command == "CAPABILITY")
                    reply = "* CAPABILITY IMAP4rev1\r\n";
                if (!client.send(reply + tag + " OK done\r\n"))
                    return;
            }
        }
    }

    LoopbackServer server_;
};

}  // namespace pelk
