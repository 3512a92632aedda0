#include "apps/desktop/desktop_program.h"

#include <QApplication>
#include <QFileDialog>
#include <new>
#include <optional>

#include "addin/Connect.h"
#include "addin/product.h"
#include "apps/desktop/main_window.h"
#include "db/no_data_folder.h"
#include "platform/desktop/desktop_platform.h"
#include "platform/desktop/folder_lock.h"
#include "platform/desktop/qt/dialogs.h"
#include "platform/desktop/qt/display.h"
#include "platform/desktop/qt/images.h"
#include "platform/desktop/qt/toolkit.h"

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

/// Asks where the mail is, because the desktop's menu starts the program without arguments. Empty
/// if the user cancels.
std::vector<std::string> askForMail() {
    const QString folder = QFileDialog::getExistingDirectory(
        nullptr, "Pelk: choose the folder that holds your mail", QDir::homePath());
    if (folder.isEmpty())
        return {};
    return {QFile::encodeName(folder).toStdString()};
}

void openMailWindow(const Arguments& arguments, QtDialogs& dialogs) {
    DesktopPlatform desktop(arguments.dataFolder);
    const Platform platform = desktop.services();
    QtToolkit toolkit(dialogs, desktop.language());
    MainWindow window(arguments.operands, arguments.mail, dialogs);
    const std::optional<FolderLock> lock = lockDatabase(platform);
    window.show();
    QtDisplay display;
    Connect connect({toolkit, dialogs, display}, platform);
    connect.OnConnection(window);
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
        Arguments opened = arguments;
        if (opened.operands.empty())
            opened.operands = askForMail();
        if (!opened.operands.empty())
            openMailWindow(opened, dialogs);
    } catch (const Error& error) {
        dialogs.message(error.what(), Buttons::Ok);
        throw;
    } catch (const std::bad_alloc&) {
        dialogs.message(kNotEnoughMemory, Buttons::Ok);
        throw;
    }
}

}  // namespace pelk
