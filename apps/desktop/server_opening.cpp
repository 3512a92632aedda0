#include "apps/desktop/server_opening.h"

#include <chrono>
#include <system_error>
#include <thread>

#include "apps/desktop/server_wait.h"
#include "mailstore/imap/imap_session.h"

namespace pelk {
namespace {

/// A user at a window waits less patiently than a script.
constexpr std::chrono::seconds kLimit{30};

}  // namespace

ServerOpening::ServerOpening(const ImapAccount& account, const std::string& password,
                             const MailStoreOptions& options) {
    const auto task = std::make_shared<std::packaged_task<std::unique_ptr<MailSession>()>>(
        [account, password, options] {
            ImapServerOptions server;
            server.secret = [password] { return password; };
            const auto wait = std::make_shared<ServerWait>(account.host);
            server.patience = {kLimit, [wait](auto waited) { return wait->goesOn(waited); }};
            return openImapSession(account, std::move(server), options);
        });
    session_ = task->get_future();
    try {
        // Nothing can interrupt a search for a host's address, so nobody waits for the thread.
        std::thread([task] { (*task)(); }).detach();
    } catch (const std::system_error&) {
        (*task)();
    }
}

bool ServerOpening::isDone() const {
    return session_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

}  // namespace pelk
