#pragma once
// The mail window of the desktop: a small mail client that shows mail and holds the menu.

#include <QActionGroup>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/desktop/mail_choices.h"
#include "apps/desktop/mail_view_state.h"
#include "apps/desktop/undo_entries.h"
#include "mailstore/discovery/user_places.h"
#include "mailstore/mail_store.h"
#include "platform/desktop/locale_language.h"
#include "platform/dialogs.h"
#include "platform/mail_client.h"

namespace pelk {

class MailView;

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
    /// Opens the page of the help with this file name. If empty, the window offers no help. May
    /// throw `Error`.
    std::function<void(const std::string&)> openHelp;
    /// The path of the database; empty where there is none.
    std::string database;
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

    /// Adds Undo and Redo to the menu Edit. Called once.
    void setUndo(const UndoCommands& commands) { addUndoEntries(*edit_, dialogs_, commands); }

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
    void buildMenus();
    void buildFileMenu();
    void buildEditMenu();
    void buildViewMenu();
    void buildHelpMenu();
    void showAbout();
    void buildStatusBar();
    QAction* addToMenu(QMenu& menu, const QString& caption, const QKeySequence& keys,
                       const std::function<void()>& act);
    void fillRecent(QMenu& menu);
    MailView* mailView() const;
    QAction* addForMail(QMenu& menu, const QString& caption, const QKeySequence& keys,
                        const std::function<void(MailView&)>& act);
    void copy() const;
    void saveViewState();
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
    const LocaleLanguage language_;
    MailViewState viewState_;
    QLabel* status_;
    QMenu* edit_ = nullptr;
    QMenu* commands_ = nullptr;
    /// The entries that need open mail.
    QActionGroup* forMail_;
};

}  // namespace pelk
