#pragma once
// Opens accounts on mail servers for the mail window, and keeps their passwords.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "apps/desktop/keyring.h"
#include "mailstore/imap/imap_account.h"
#include "mailstore/mail_store.h"
#include "platform/dialogs.h"

namespace pelk {

/// Stores a password in the keyring after the server has accepted it, and keeps it in memory while
/// this object lives. Only the thread of the windows may use it.
class ServerMail {
 public:
    ServerMail(Keyring& keyring, Dialogs& dialogs) : keyring_(keyring), dialogs_(dialogs) {}

    /// Asks for an account, and returns its URL; nothing when the user cancels.
    std::optional<std::string> add();
    /// Uses this password for the account with that URL, and keeps it in memory only.
    void know(const std::string& url, std::string password) {
        passwords_[url] = {std::move(password), true};
    }
    /// Opens the account with that URL. Asks for the password if it is unknown or the server
    /// refuses it. Shows a message if the keyring cannot store it. Throws `Error` if the server is
    /// out of reach or the user cancels.
    std::unique_ptr<MailSession> open(const std::string& url, const MailStoreOptions& options);

 private:
    struct Password {
        std::string text;
        /// Whether it is in the keyring, or the user knows that it is not.
        bool isSettled = false;
    };

    std::optional<Password> known(const std::string& url, std::string& fault);
    void settle(const std::string& url, Password& password);

    Keyring& keyring_;
    Dialogs& dialogs_;
    /// By URL.
    std::map<std::string, Password> passwords_;
};

}  // namespace pelk
