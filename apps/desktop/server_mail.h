#pragma once
// The mail of accounts on servers, for the mail window, with the passwords.

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

/// Keeps a password in the keyring once the server has taken it, and in the memory as long as this
/// lives. Only the thread of the windows may use it.
class ServerMail {
 public:
    ServerMail(Keyring& keyring, Dialogs& dialogs) : keyring_(keyring), dialogs_(dialogs) {}

    /// Asks for an account, and returns its URL; nothing when the user cancels.
    std::optional<std::string> add();
    /// Uses this password for the account of that URL, and keeps it in the memory alone.
    void know(const std::string& url, std::string password) {
        passwords_[url] = {std::move(password), true};
    }
    /// Opens the account of that URL. Asks for the password where it is not known, or the server
    /// does not take it. Says in a box when the password cannot be kept. Throws `Error` when the
    /// server cannot be reached, or the user cancels.
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
