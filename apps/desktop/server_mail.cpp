#include "apps/desktop/server_mail.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <utility>

#include "apps/desktop/server_dialog.h"
#include "apps/desktop/server_opening.h"
#include "apps/desktop/waiting_box.h"
#include "mailstore/imap/imap_faults.h"

namespace pelk {
namespace {

constexpr int kPromptLetters = 60;

[[noreturn]] void failCancelled(const ImapAccount& account) {
    throw Error("The mail of " + account.name() + " was not opened: you cancelled it.");
}

std::string askPassword(const ImapAccount& account, const std::string& reason) {
    QInputDialog box(QApplication::activeWindow());
    box.setWindowTitle(QStringLiteral("Pelk"));
    box.setLabelText(QString::fromStdString((reason.empty() ? "" : reason + "\n\n") +
                                            "Password of " + account.name() + " on " +
                                            account.host + ":"));
    box.setTextEchoMode(QLineEdit::Password);
    for (QLabel* label : box.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    box.resize(kPromptLetters * box.fontMetrics().averageCharWidth(), box.sizeHint().height());
    if (box.exec() != QDialog::Accepted)
        failCancelled(account);
    return box.textValue().toStdString();
}

std::unique_ptr<MailSession> connectTo(const ImapAccount& account, const std::string& password,
                                       const MailStoreOptions& options) {
    ServerOpening opening(account, password, options);
    if (!waitWithBox(QString::fromStdString("Connecting to " + account.host + "..."),
                     [&opening] { return opening.isDone(); }))
        failCancelled(account);
    return opening.take();
}

}  // namespace

std::optional<std::string> ServerMail::add() {
    ServerDialog dialog(QApplication::activeWindow());
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    passwords_[dialog.url()] = {dialog.password()};
    return dialog.url();
}

std::unique_ptr<MailSession> ServerMail::open(const std::string& url,
                                              const MailStoreOptions& options) {
    const ImapAccount account = readImapAddress(url);
    std::string reason;
    std::optional<Password> password = known(url, reason);
    // The prompt shows the keyring's fault, so that no box need repeat it.
    const bool isFaultKnown = !reason.empty();
    for (;;) {
        if (!password)
            password = Password{askPassword(account, reason), isFaultKnown};
        try {
            std::unique_ptr<MailSession> session = connectTo(account, password->text, options);
            settle(url, *password);
            passwords_[url] = std::move(*password);
            return session;
        } catch (const LoginRefused& refused) {
            reason = refused.what();
            passwords_.erase(url);
            password.reset();
        }
    }
}

/// The fault of a keyring that cannot be used is no reason to stop: the user can be asked.
std::optional<ServerMail::Password> ServerMail::known(const std::string& url, std::string& fault) {
    if (const auto found = passwords_.find(url); found != passwords_.end())
        return found->second;
    try {
        if (std::optional<std::string> kept = keyring_.find(url))
            return Password{std::move(*kept), true};
    } catch (const Error& error) {
        fault = error.what();
    }
    return std::nullopt;
}

void ServerMail::settle(const std::string& url, Password& password) {
    if (std::exchange(password.isSettled, true))
        return;
    try {
        keyring_.keep(url, password.text);
    } catch (const Error& error) {
        dialogs_.message(std::string(error.what()) +
                             " Pelk keeps the password only until you quit, and asks for it again "
                             "the next time.",
                         Buttons::Ok);
    }
}

}  // namespace pelk
