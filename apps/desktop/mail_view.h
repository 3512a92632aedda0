#pragma once
// The folders on the left, and the messages of the selected folder on the right.

#include <QLabel>
#include <QSplitter>
#include <QTableView>
#include <QTreeView>

#include "apps/desktop/folder_list.h"
#include "apps/desktop/message_list.h"
#include "platform/dialogs.h"

namespace pelk {

class MailView : public QSplitter {
 public:
    /// Shows the mail of the session, and the number of messages of the folder in `status`, which
    /// must outlive this object. Throws `Error` when the folders cannot be listed.
    MailView(MailSession& session, QLabel& status, Dialogs& dialogs);

 private:
    void buildFolders();
    void buildMessages();
    void showFolder(const QModelIndex& index);

    FolderList folders_;
    MessageList messages_;
    QLabel& status_;
    Dialogs& dialogs_;
    QTreeView* folderView_;
    QTableView* messageView_;
};

}  // namespace pelk
