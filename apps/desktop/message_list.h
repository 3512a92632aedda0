#pragma once
// The messages of one folder as a table: sender, subject, date. It can be searched and sorted.

#include <QAbstractTableModel>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "apps/desktop/message_rows.h"

namespace pelk {

/// Reads a message when its row is first shown. To search or sort, it reads all messages of the
/// folder, some at a time while no events are pending.
class MessageList : public QAbstractTableModel {
 public:
    using Column = MessageRows::Column;

    /// `language` outlives the list.
    explicit MessageList(const Language& language);

    /// Returns the time in the format of the user's locale.
    static QString dateText(const LocalTime& time);

    /// Shows the folder, which must exist until another is shown. Throws `Error` and leaves the
    /// list empty when the folder cannot be read.
    void showFolder(StoredFolder& folder);
    /// Shows only the messages whose sender or subject contains each word, without regard to case
    /// and accents. Empty text shows all.
    void search(const QString& text);
    /// Sorts by the column, or in the order of the folder if `column` is negative.
    void sort(int column, Qt::SortOrder order) override;

    /// The number of the message in the folder, from 0.
    std::size_t numberOf(int row) const { return shown_[static_cast<std::size_t>(row)]; }
    /// Returns the row that shows the message; nothing if none does.
    std::optional<int> rowOf(std::size_t number) const;
    /// Reads the message for people. Throws `Error` when it cannot be read.
    MessageText read(int row) const;

    /// Says how many messages are shown, and whether more are being read.
    QString stateText() const;
    /// Called when `stateText` has changed.
    std::function<void()> onState;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
    bool isOrdered() const { return !query_.empty() || sortColumn_ >= 0; }
    void order();
    void readOn();
    void arrange();
    void keepFound();
    void addFound();

    mutable MessageRows rows_;
    /// The numbers of the messages in the order of the rows.
    std::vector<std::size_t> shown_;
    /// All messages in the order of the sort; empty until they have been sorted.
    std::vector<std::size_t> sorted_;
    /// Empty if it has no words.
    std::string query_;
    int sortColumn_ = -1;
    bool descending_ = false;
    QTimer reading_;
};

}  // namespace pelk
