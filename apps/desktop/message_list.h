#pragma once
// The messages of one folder as a table: sender, subject, date.

#include <QAbstractTableModel>
#include <unordered_map>

#include "mailstore/mail_store.h"

namespace pelk {

/// Reads a message when its row is first shown.
class MessageList : public QAbstractTableModel {
 public:
    enum Column { kFrom, kSubject, kDate, kColumnCount };

    /// Returns the time in the format of the user's locale.
    static QString dateText(const LocalTime& time);

    /// Shows the folder, which must exist until another is shown. Throws `Error` and leaves the
    /// list empty when the folder cannot be read.
    void showFolder(StoredFolder& folder);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
    struct Row {
        QString from;
        QString subject;
        QString date;
        bool isMail = true;
    };
    static const QString& textOf(const Row& row, int column);
    const Row& row(int number) const;
    Row readRow(int number) const;

    StoredFolder* folder_ = nullptr;
    int count_ = 0;
    mutable std::unordered_map<int, Row> rows_;
};

}  // namespace pelk
