#include "apps/desktop/message_list.h"

#include <QDateTime>
#include <QFont>
#include <QLocale>

#include "platform/desktop/qt/plain_tool_tip.h"

namespace pelk {

QString MessageList::dateText(const LocalTime& time) {
    const QDateTime moment(QDate(time.year, time.month, time.day),
                           QTime(time.hour, time.minute, time.second));
    return QLocale().toString(moment, QLocale::ShortFormat);
}

void MessageList::showFolder(StoredFolder& folder) {
    beginResetModel();
    folder_ = &folder;
    rows_.clear();
    count_ = 0;
    try {
        count_ = folder.itemCount();
    } catch (...) {
        endResetModel();
        throw;
    }
    endResetModel();
}

int MessageList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

int MessageList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant MessageList::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::FontRole && role != Qt::ToolTipRole)
        return {};
    const Row& shown = row(index.row());
    if (role == Qt::FontRole) {
        // Items that are not e-mails, and so are not counted, are in italics.
        QFont font;
        font.setItalic(!shown.isMail);
        return font;
    }
    const QString& text = textOf(shown, index.column());
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
}

const QString& MessageList::textOf(const Row& row, int column) {
    switch (column) {
        case kFrom:
            return row.from;
        case kSubject:
            return row.subject;
        default:
            return row.date;
    }
}

QVariant MessageList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
        case kFrom:
            return QStringLiteral("From");
        case kSubject:
            return QStringLiteral("Subject");
        default:
            return QStringLiteral("Date");
    }
}

const MessageList::Row& MessageList::row(int number) const {
    const auto found = rows_.find(number);
    return found != rows_.end() ? found->second
                                : rows_.emplace(number, readRow(number)).first->second;
}

/// A message that cannot be read says so in its row.
MessageList::Row MessageList::readRow(int number) const {
    try {
        const MessageSummary summary = folder_->summary(number + 1);
        return {QString::fromStdString(summary.from), QString::fromStdString(summary.subject),
                dateText(summary.created), summary.kind == ItemKind::Mail};
    } catch (const std::exception& error) {
        return {{}, QString::fromUtf8(error.what()), {}, false};
    }
}

}  // namespace pelk
