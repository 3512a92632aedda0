#pragma once
// The mail window of the desktop: a small mail client that shows mail and holds the menu.

#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/desktop/mail_choices.h"
#include "mailstore/discovery/user_places.h"
#include "mailstore/mail_store.h"
#include "platform/dialogs.h"
#include "platform/mail_client.h"

namespace pelk {

/// What the window offers besides the mail that is open.
struct MainWindowOffers {
    /// The places to search for mail.
    UserPlaces places;
    /// The mail that was opened before.
    MailChoices choices{{}};
    /// Asks for an account on a mail server. Returns its URL; nothing when the user cancels. If
    /// empty, the window offers no mail servers. May throw `Error`.
    std::function<std::optional<std::string>()> addServer;
    /// Opens the account with this URL. May throw `Error`. If empty, the window opens no mail
    /// servers.
    std::function<std::unique_ptr<MailSession>(const std::string&, const MailStoreOptions&)>
        openServer;
    /// Shows the example mail; empty where there is none. May throw `Error`.
    std::function<void()> showExample;
};

class MainWindow : public QMainWindow, public MailClient {
 public:
    /// Shows the mail at these paths and on the mail servers given as URLs; without any, a list of
    /// the mail on this computer. Throws `Error` when a path holds no mail.
    MainWindow(const std::vector<std::string>& paths, MailStoreOptions options, Dialogs& dialogs,
               MainWindowOffers offers = {});

    /// Replaces the open mail by this one and remembers it. Throws `Error` when a path holds no
    /// mail, and leaves the window unchanged, or when the mail is open but cannot be remembered.
    void open(const std::vector<std::string>& paths);
    /// Shows the mail that was chosen last, if any was.
    void openLastChoice();

    /// Throws `Error` when no mail is open.
    std::unique_ptr<MailSession> session() override;
    std::unique_ptr<CommandPopup> addPopup(std::string_view bar, std::string_view caption,
                                           std::string_view tag) override;
    /// Shows the line in the status bar until the mail window shows something else.
    void tell(const std::string& text) override;

 protected:
    /// Closing the mail window ends the program, whatever other windows are open.
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

 private:
    void buildMenu();
    void addToMenu(QMenu& menu, const QString& caption, const QKeySequence& keys,
                   const std::function<void()>& act);
    void fillRecent(QMenu& menu);
    std::unique_ptr<MailSession> openSession(const std::vector<std::string>& paths) const;
    void showMail(const std::vector<std::string>& paths);
    void showFirstPage();
    void openFolder();
    void openFile();
    void addServer();
    void setCentral(QWidget* widget);

    std::vector<std::string> paths_;
    const MailStoreOptions options_;
    Dialogs& dialogs_;
    MainWindowOffers offers_;
    QLabel* status_;
};

}  // namespace pelk
