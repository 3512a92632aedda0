#include "mailstore/imap/mixed_session.h"

#include <algorithm>
#include <utility>

#include "mailstore/imap/imap_account.h"
#include "mailstore/joined_session.h"

namespace pelk {

std::unique_ptr<MailSession> openMixedSession(const std::vector<std::string>& mail,
                                              const MailStoreOptions& options,
                                              const OpenServer& openServer) {
    std::vector<std::string> paths;
    std::vector<std::string> servers;
    for (const std::string& one : mail) {
        std::vector<std::string>& kind = isImapAddress(one) ? servers : paths;
        if (std::find(kind.begin(), kind.end(), one) == kind.end())
            kind.push_back(one);
    }
    std::vector<std::unique_ptr<MailSession>> sessions;
    if (!paths.empty() || servers.empty())
        sessions.push_back(openMailSession(paths, options));
    for (const std::string& server : servers)
        sessions.push_back(openServer(server));
    return joinSessions(std::move(sessions));
}

}  // namespace pelk
