#pragma once
// The folders on the left, and the messages of the selected folder on the right.

#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTableView>
#include <QTreeView>

#include "apps/desktop/folder_list.h"
#include "apps/desktop/mail_view_state.h"
#include "apps/desktop/message_list.h"
#include "apps/desktop/message_window.h"
#include "platform/dialogs.h"

namespace pelk {

/// The parts of the mail window that a mail view uses. All outlive it.
struct MailViewPlace {
    /// Shows the number of messages.
    QLabel& status;
    Dialogs& dialogs;
    const Language& language;
    /// Is kept up to date.
    MailViewState& state;
};

class MailView : public QSplitter {
 public:
    /// Shows the mail of the session. Throws `Error` when the folders cannot be listed.
    MailView(MailSession& session, const MailViewPlace& place);

    /// Moves the focus to the search field.
    void find();
    /// Copies the selected messages to the clipboard, a line for each.
    void copy() const;
    void showFolders(bool shown);
    /// Sorts by the column, or not at all if it is negative.
    void sortBy(int column, Qt::SortOrder order);

 private:
    void buildFolders();
    QWidget* makeMessages();
    void buildTable();
    void buildHeader();
    void restoreState();
    void noteState();
    void keepCurrentMessage();
    void showFolder(const QModelIndex& index);
    void openMessage(const QModelIndex& index);

    MailViewPlace place_;
    FolderList folders_;
    MessageList messages_;
    QTreeView* folderView_;
    QLineEdit* search_;
    QTableView* messageView_;
    MessageWindow* messageWindow_ = nullptr;
    /// The number of the current message while the list changes.
    std::optional<std::size_t> current_;
    bool isRestoring_ = true;
};

}  // namespace pelk
