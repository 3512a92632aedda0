#pragma once
// A server, whose connection is made when it is needed and again when it is lost.

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "mailstore/imap/imap_connection.h"
#include "mailstore/imap/imap_faults.h"

namespace pelk {

struct ImapServerOptions {
    /// Gives the password or, for OAuth 2, the token. Called before the first connection. Fails
    /// with an `Error`.
    std::function<std::string()> secret;
    /// How long the server may be silent.
    std::chrono::seconds limit{60};
    /// Before a lost connection is made anew; twice that before the try after.
    std::chrono::milliseconds pause{1000};
};

/// May be used by several threads, of which one waits for the other.
class ImapServer {
 public:
    /// How often in a row the same thing is tried.
    static constexpr int kTries = 3;

    ImapServer(ImapAccount account, ImapServerOptions options)
        : account_(std::move(account)), options_(std::move(options)) {}
    ~ImapServer();
    ImapServer(const ImapServer&) = delete;
    ImapServer& operator=(const ImapServer&) = delete;

    const ImapAccount& account() const { return account_; }

    /// Calls `act` with a connection that has been logged in, and again with another one when that
    /// is lost or used up by an answer that cannot be read. Fails with an `Error`, also of `act`'s
    /// own; once the server cannot be reached any more, at once.
    template <typename Act>
    auto with(const Act& act) {
        const std::lock_guard guard(inUse_);
        for (int tries = 1;; ++tries) {
            try {
                connect();
                auto result = act(*connection_);
                broken_ = 0;
                return result;
            } catch (const ConnectionLost& lost) {
                noteLost(lost, tries);
            } catch (const BrokenAnswer& broken) {
                noteBroken(broken, tries);
            }
        }
    }

    /// The same in a folder. Fails with an `Error` when its messages are numbered anew.
    template <typename Act>
    auto inMailbox(const std::string& mailbox, std::uint32_t uidValidity, const Act& act) {
        return with([&](ImapConnection& connection) {
            enter(connection, mailbox, uidValidity);
            return act(connection);
        });
    }

    /// Opens a folder, and tells what the server says about it.
    ExaminedMailbox examine(const std::string& mailbox);

 private:
    void connect();
    /// Waits before another try, and fails after the last one: with `lost`, as everything does from
    /// then on.
    void noteLost(const ConnectionLost& lost, int tries);
    void noteBroken(const BrokenAnswer& broken, int tries);
    void enter(ImapConnection& connection, const std::string& mailbox, std::uint32_t uidValidity);

    std::mutex inUse_;
    const ImapAccount account_;
    const ImapServerOptions options_;
    std::optional<std::string> secret_;
    std::unique_ptr<ImapConnection> connection_;
    /// The folder that the connection has open.
    std::string mailbox_;
    /// Why nothing is tried any more; empty as long as it is.
    std::string down_;
    bool wasConnected_ = false;
    /// How many acts in a row failed by answers that cannot be read.
    int broken_ = 0;
};

}  // namespace pelk
