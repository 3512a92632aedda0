#include "apps/desktop/desktop_program.h"

#include <QApplication>
#include <algorithm>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "addin/Connect.h"
#include "addin/product.h"
#include "apps/cli/mail_options.h"
#include "apps/cli/password_command.h"
#include "apps/desktop/example_mail.h"
#include "apps/desktop/keyring.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/server_mail.h"
#include "db/no_data_folder.h"
#include "mailstore/imap/imap_account.h"
#include "platform/desktop/desktop_platform.h"
#include "platform/desktop/desktop_shell.h"
#include "platform/desktop/folder_lock.h"
#include "platform/desktop/qt/dialogs.h"
#include "platform/desktop/qt/display.h"
#include "platform/desktop/qt/images.h"
#include "platform/desktop/qt/picture_output.h"
#include "platform/desktop/qt/settings_file.h"
#include "platform/desktop/qt/toolkit.h"
#include "platform/guard.h"

namespace pelk {
namespace {

/// Locks the database's folder while the window is open; nothing when there is no folder, which
/// `Connect` reports.
std::optional<FolderLock> lockDatabase(const Platform& platform) {
    try {
        return std::make_optional<FolderLock>(Storage(platform).databaseFolder());
    } catch (const NoDataFolder&) {
        return std::nullopt;
    }
}

/// Empty when there is no folder for it.
std::string databasePath(const Platform& platform) {
    try {
        return Storage(platform).databasePath();
    } catch (const NoDataFolder&) {
        return {};
    }
}

/// Beside the database when that is elsewhere than usual, so that it belongs to that database.
std::string choicesFile(const Arguments& arguments, const UserPlaces& places,
                        const std::string& name) {
    const std::string& folder = arguments.dataFolder.empty() ? places.config : arguments.dataFolder;
    return folder.empty() ? folder : folder + "/pelk/" + name;
}

MainWindowOffers offersFor(const Arguments& arguments, ServerMail& servers) {
    MainWindowOffers offers;
    offers.places = currentUserPlaces();
    offers.choices = MailChoices(choicesFile(arguments, offers.places, "window.ini"));
    if (const std::string example = exampleMail(); !example.empty() && !offers.places.cache.empty())
        offers.showExample = [example, data = offers.places.cache + "/pelk-example"] {
            showExampleMail(example, data);
        };
    offers.addServer = [&servers] { return servers.add(); };
    offers.openHelp = openHelpPage;
    offers.openServer = [&servers](const std::string& url, const MailStoreOptions& options) {
        return servers.open(url, options);
    };
    return offers;
}

void openServers(const Arguments& arguments, MainWindow& window, ServerMail& servers) {
    if (!arguments.passwordCommand.empty())
        for (const std::string& mail : arguments.operands)
            if (isImapAddress(mail))
                servers.know(mail, runPasswordCommand(arguments.passwordCommand, mail));
    window.open(arguments.operands);
}

void openMailWindow(const Arguments& arguments, QtDialogs& dialogs) {
    DesktopPlatform desktop(arguments.dataFolder);
    const Platform platform = desktop.services();
    QtToolkit toolkit(dialogs, desktop.language());
    SystemKeyring keyring;
    ServerMail servers(keyring, dialogs);
    // A server may ask for a password, or be out of reach for a while: the window comes first.
    const bool isOnServer =
        std::any_of(arguments.operands.begin(), arguments.operands.end(), isImapAddress);
    MainWindowOffers offers = offersFor(arguments, servers);
    offers.database = databasePath(platform);
    MainWindow window(isOnServer ? MailChoice() : arguments.operands, mailOptions(arguments),
                      dialogs, std::move(offers));
    const std::optional<FolderLock> lock = lockDatabase(platform);
    window.show();
    QtDisplay display;
    SettingsFile settings(choicesFile(arguments, currentUserPlaces(), "forms.ini"));
    QtPictureOutput pictures;
    Connect connect({toolkit, dialogs, display, settings, pictures}, platform);
    connect.OnConnection(window);
    window.setUndo({[&connect] { connect.undo(); }, [&connect] { connect.redo(); },
                    [&connect] { return connect.undoName(); },
                    [&connect] { return connect.redoName(); }});
    if (isOnServer)
        guarded(dialogs, [&] { openServers(arguments, window, servers); });
    else if (arguments.operands.empty())
        guarded(dialogs, [&window] { window.openLastChoice(); });
    QApplication::exec();
    connect.OnDisconnection();
}

}  // namespace

void runDesktopProgram(const Arguments& arguments, int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QString::fromUtf8(kProductName));
    QApplication::setWindowIcon(programIcon());
    QApplication::setApplicationVersion(QString::fromUtf8(kProductVersion));
    QtDialogs dialogs;
    try {
        openMailWindow(arguments, dialogs);
    } catch (const Error& error) {
        dialogs.message(error.what(), Buttons::Ok);
        throw;
    } catch (const std::bad_alloc&) {
        dialogs.message(kNotEnoughMemory, Buttons::Ok);
        throw;
    }
}

}  // namespace pelk
