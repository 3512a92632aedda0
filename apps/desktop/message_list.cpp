#include "apps/desktop/message_list.h"

#include <QDateTime>
#include <QFont>
#include <QLocale>
#include <algorithm>
#include <numeric>

#include "platform/desktop/qt/plain_tool_tip.h"

namespace pelk {
namespace {

using namespace std::chrono_literals;

/// Short enough for a smooth window, long enough for a folder of some thousand messages to appear
/// sorted at once.
constexpr auto kReadingTime = 20ms;
constexpr auto kFirstReadingTime = 150ms;

QString textOf(const MessageRows::Row& row, int column) {
    switch (column) {
        case MessageRows::kFrom:
            return QString::fromStdString(row.summary.from);
        case MessageRows::kSubject:
            return QString::fromStdString(row.fault.empty() ? row.summary.subject : row.fault);
        default:
            return row.fault.empty() ? MessageList::dateText(row.summary.created) : QString();
    }
}

}  // namespace

MessageList::MessageList(const Language& language) : rows_(language) {
    connect(&reading_, &QTimer::timeout, this, [this] { readOn(); });
}

QString MessageList::dateText(const LocalTime& time) {
    const QDateTime moment(QDate(time.year, time.month, time.day),
                           QTime(time.hour, time.minute, time.second));
    return QLocale().toString(moment, QLocale::ShortFormat);
}

void MessageList::showFolder(StoredFolder& folder) {
    reading_.stop();
    beginResetModel();
    shown_.clear();
    sorted_.clear();
    endResetModel();
    rows_.take(folder);
    order();
}

void MessageList::search(const QString& text) {
    query_ = text.simplified().toStdString();
    order();
}

void MessageList::sort(int column, Qt::SortOrder order) {
    sortColumn_ = column;
    descending_ = order == Qt::DescendingOrder;
    sorted_.clear();
    this->order();
}

/// Shows the messages as the user wants them, as far as they have been read.
void MessageList::order() {
    if (isOrdered() && !rows_.isDone()) {
        rows_.readOn(kFirstReadingTime);
        if (!rows_.isDone())
            reading_.start(0);
    }
    arrange();
}

/// Messages that are found while the reading goes on are added at the end. The sort follows when
/// all have been read.
void MessageList::readOn() {
    rows_.readOn(kReadingTime);
    if (rows_.isDone() || !isOrdered())
        reading_.stop();
    if (rows_.isDone() && sortColumn_ >= 0)
        arrange();
    else
        addFound();
}

void MessageList::arrange() {
    beginResetModel();
    if (sortColumn_ >= 0 && sorted_.empty() && rows_.isDone())
        sorted_ = rows_.sortedBy(static_cast<Column>(sortColumn_), descending_);
    shown_ = sorted_;
    if (shown_.empty()) {
        shown_.resize(rows_.count());
        std::iota(shown_.begin(), shown_.end(), 0);
    }
    if (!query_.empty())
        keepFound();
    endResetModel();
    if (onState)
        onState();
}

void MessageList::keepFound() {
    std::vector<bool> isFound(rows_.count());
    for (const std::size_t number : rows_.find(query_))
        isFound[number] = true;
    std::erase_if(shown_, [&isFound](std::size_t number) { return !isFound[number]; });
}

/// The search finds the messages in the order of the reading, so the new ones are the last.
void MessageList::addFound() {
    const auto had = static_cast<std::ptrdiff_t>(shown_.size());
    if (const auto& found = rows_.find(query_); found.size() > shown_.size()) {
        beginInsertRows({}, rowCount(), static_cast<int>(found.size()) - 1);
        shown_.insert(shown_.end(), found.begin() + had, found.end());
        endInsertRows();
    }
    if (onState)
        onState();
}

std::optional<int> MessageList::rowOf(std::size_t number) const {
    const auto found = std::find(shown_.begin(), shown_.end(), number);
    return found == shown_.end() ? std::nullopt
                                 : std::optional(static_cast<int>(found - shown_.begin()));
}

MessageText MessageList::read(int row) const {
    return rows_.folder().read(static_cast<int>(numberOf(row)) + 1);
}

QString MessageList::stateText() const {
    const auto number = [](std::size_t count) {
        return QLocale().toString(static_cast<qulonglong>(count));
    };
    const std::size_t all = rows_.count();
    QString text =
        number(all) + (all == 1 ? QStringLiteral(" message") : QStringLiteral(" messages"));
    if (!query_.empty())
        text = QStringLiteral("%1 of %2 found").arg(number(shown_.size()), text);
    if (!isOrdered() || rows_.readCount() == all)
        return text;
    return text + (rows_.isDone() ? QStringLiteral(". Only %1 could be read.")
                                  : QStringLiteral(", reading: %1 so far"))
                      .arg(number(rows_.readCount()));
}

int MessageList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int MessageList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : MessageRows::kColumnCount;
}

QVariant MessageList::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::FontRole && role != Qt::ToolTipRole)
        return {};
    const MessageRows::Row& row = rows_.row(numberOf(index.row()));
    if (role == Qt::FontRole) {
        // Items that are not e-mails, and so are not counted, are in italics.
        QFont font;
        font.setItalic(row.summary.kind != ItemKind::Mail);
        return font;
    }
    const QString text = textOf(row, index.column());
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
}

QVariant MessageList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
        case MessageRows::kFrom:
            return QStringLiteral("From");
        case MessageRows::kSubject:
            return QStringLiteral("Subject");
        default:
            return QStringLiteral("Date");
    }
}

}  // namespace pelk
