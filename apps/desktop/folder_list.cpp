#include "apps/desktop/folder_list.h"

#include <QApplication>
#include <QStyle>

#include "platform/desktop/qt/plain_tool_tip.h"

namespace pelk {
namespace {

/// The item role that holds the position of its folder.
constexpr int kFolderRole = Qt::UserRole + 1;

}  // namespace

FolderList::FolderList(MailSession& session) {
    add(*model_.invisibleRootItem(), *session.folders());
}

QModelIndex FolderList::startIndex() const {
    const QList<QStandardItem*> inboxes =
        model_.findItems(QStringLiteral("inbox"), Qt::MatchFixedString | Qt::MatchRecursive);
    return inboxes.isEmpty() ? model_.index(0, 0) : inboxes.first()->index();
}

StoredFolder& FolderList::folderOf(const QModelIndex& index) const {
    return *folders_[static_cast<std::size_t>(index.data(kFolderRole).toULongLong())];
}

void FolderList::add(QStandardItem& parent, MailFolders& folders) {
    while (std::unique_ptr<MailFolder> folder = folders.next()) {
        auto* const item =
            new QStandardItem(QApplication::style()->standardIcon(QStyle::SP_DirIcon),
                              QString::fromStdString(folder->name()));
        item->setEditable(false);
        item->setData(static_cast<qulonglong>(folders_.size()), kFolderRole);
        parent.appendRow(item);
        folders_.emplace_back(static_cast<StoredFolder*>(folder.release()));
        try {
            add(*item, *folders_.back()->folders());
        } catch (const Error& error) {
            item->setToolTip(plainToolTip(QString::fromUtf8(error.what())));
        }
    }
}

}  // namespace pelk
