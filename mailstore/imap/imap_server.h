#pragma once
// A mail server. Connects on first use, and again after a lost connection.

#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "mailstore/imap/imap_connection.h"
#include "mailstore/imap/imap_faults.h"

namespace pelk {

struct ImapServerOptions {
    /// Returns the password or, for OAuth 2, the token. Called before the first connection. Throws
    /// `Error` if there is none.
    std::function<std::string()> secret;
    Patience patience = {};
    /// The pause before the second try; the third follows after twice that time.
    std::chrono::milliseconds pause{1000};
};

/// Several threads may call; each call waits for the one before it to end.
class ImapServer {
 public:
    /// The number of tries before an operation fails.
    static constexpr int kTries = 3;

    ImapServer(ImapAccount account, ImapServerOptions options)
        : account_(std::move(account)), options_(std::move(options)) {}
    ~ImapServer();
    ImapServer(const ImapServer&) = delete;
    ImapServer& operator=(const ImapServer&) = delete;

    const ImapAccount& account() const { return account_; }

    /// Calls `act` with a logged-in connection and returns its result. Tries again with a new
    /// connection if the old one is lost or an answer cannot be parsed. Throws `Error` if all tries
    /// fail or `act` throws one; at once if the server is known to be out of reach.
    template <typename Act>
    auto with(const Act& act) {
        const std::unique_lock guard = lock();
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
            } catch (const Cancelled& cancelled) {
                noteCancelled(cancelled);
                throw;
            }
        }
    }

    /// Opens the folder and then works like `with`. Throws `Error` if its UIDVALIDITY has changed.
    template <typename Act>
    auto inMailbox(const std::string& mailbox, std::uint32_t uidValidity, const Act& act) {
        return with([&](ImapConnection& connection) {
            enter(connection, mailbox, uidValidity);
            return act(connection);
        });
    }

    /// Waits for the end of a call on another thread, as patiently as for the server. Throws
    /// `Cancelled` if the user ends the wait; the other call then ends soon.
    template <typename Result>
    void waitFor(const std::future<Result>& call) {
        for (const Wait wait(options_.patience);
             call.wait_for(Wait::kStep) == std::future_status::timeout;)
            wait.requireGoingOn();
    }

    /// Opens a folder and returns its numbering and size.
    ExaminedMailbox examine(const std::string& mailbox);

 private:
    void connect();
    /// Waits before another try. After the last one, throws `lost` as an `Error`, now and in all
    /// later calls.
    void noteLost(const ConnectionLost& lost, int tries);
    void noteBroken(const BrokenAnswer& broken, int tries);
    /// Makes all later calls fail: the user would have to end one wait after the other.
    void noteCancelled(const Cancelled& cancelled);
    std::unique_lock<std::mutex> lock();
    void enter(ImapConnection& connection, const std::string& mailbox, std::uint32_t uidValidity);

    std::mutex inUse_;
    const ImapAccount account_;
    const ImapServerOptions options_;
    std::optional<std::string> secret_;
    std::unique_ptr<ImapConnection> connection_;
    /// The folder that is open on the connection.
    std::string mailbox_;
    /// Why all calls fail at once; empty as long as the server is usable.
    std::string down_;
    bool wasConnected_ = false;
    /// How many calls in a row failed because of answers that cannot be parsed.
    int broken_ = 0;
};

}  // namespace pelk
