#pragma once
// The mail window of the desktop: a small mail client that shows mail and holds the menu.

#include <QLabel>
#include <QMainWindow>
#include <QTableView>
#include <QTreeView>
#include <string>
#include <vector>

#include "apps/desktop/folder_list.h"
#include "apps/desktop/message_list.h"
#include "platform/dialogs.h"
#include "platform/mail_client.h"

namespace pelk {

class MainWindow : public QMainWindow, public MailClient {
 public:
    /// Shows the mail at these paths. Throws `Error` when one holds no mail.
    MainWindow(std::vector<std::string> paths, MailStoreOptions options, Dialogs& dialogs);

    std::unique_ptr<MailSession> session() override;
    std::unique_ptr<CommandPopup> addPopup(std::string_view bar, std::string_view caption,
                                           std::string_view tag) override;

 protected:
    /// Closing the mail window ends the program, whatever other windows are open.
    void closeEvent(QCloseEvent* event) override;

 private:
    void buildViews();
    void showFolder(const QModelIndex& index);

    const std::vector<std::string> paths_;
    const MailStoreOptions options_;
    Dialogs& dialogs_;
    FolderList folders_;
    MessageList messages_;
    QTreeView* folderView_;
    QTableView* messageView_;
    QLabel* status_;
};

}  // namespace pelk
