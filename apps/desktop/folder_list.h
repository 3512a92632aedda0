#pragma once
// The folders of a mail session as the tree beside the messages.

#include <QStandardItemModel>
#include <memory>
#include <vector>

#include "mailstore/mail_store.h"

namespace pelk {

/// Holds the folders of a session, each for as long as this lives.
class FolderList {
 public:
    /// Walks the folders once. A folder whose subfolders cannot be read is shown without them.
    explicit FolderList(MailSession& session);

    QStandardItemModel& model() { return model_; }
    /// The row to start with: that of the inbox if one is called so, else the first. Invalid when
    /// there is no folder.
    QModelIndex startIndex() const;
    /// The folder of a row of the model.
    StoredFolder& folderOf(const QModelIndex& index) const;

 private:
    void add(QStandardItem& parent, MailFolders& folders);

    QStandardItemModel model_;
    std::vector<std::unique_ptr<StoredFolder>> folders_;
};

}  // namespace pelk
