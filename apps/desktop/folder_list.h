#pragma once
// The folders of a mail session as the tree beside the messages.

#include <QStandardItemModel>
#include <memory>
#include <vector>

#include "mailstore/mail_store.h"

namespace pelk {

/// Holds the folders of a session while it exists.
class FolderList {
 public:
    /// Reads the folders once. A folder whose subfolders cannot be read is shown without them.
    explicit FolderList(MailSession& session);

    QStandardItemModel& model() { return model_; }
    /// Returns the first row to show: the folder named "inbox", else the first one. Invalid when
    /// there is no folder.
    QModelIndex startIndex() const;
    /// Returns the folder of a row of the model.
    StoredFolder& folderOf(const QModelIndex& index) const;

 private:
    void add(QStandardItem& parent, MailFolders& folders);

    QStandardItemModel model_;
    std::vector<std::unique_ptr<StoredFolder>> folders_;
};

}  // namespace pelk
