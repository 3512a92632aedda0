#include "apps/desktop/found_mail_model.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QLocale>
#include <algorithm>

#include "mailstore/mail_text.h"
#include "platform/desktop/qt/plain_tool_tip.h"

namespace pelk {
namespace {

QString toText(const std::string& utf8) {
    return QString::fromStdString(decodeText(utf8));
}

/// The path with "~" in the place of the home.
QString pathText(const std::string& path) {
    const QString text = QFile::decodeName(QByteArray::fromStdString(path));
    const QString home = QDir::homePath() + "/";
    return text.startsWith(home) ? "~/" + text.mid(home.size()) : text;
}

QString dayText(std::int64_t seconds) {
    return seconds > 0 ? QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds).date(),
                                            QLocale::ShortFormat)
                       : QString();
}

}  // namespace

FoundMailModel::FoundMailModel() : QStandardItemModel(0, kColumnCount) {
    setHorizontalHeaderLabels({QStringLiteral("Program"), QStringLiteral("Account"),
                               QStringLiteral("Folders"), QStringLiteral("Size"),
                               QStringLiteral("Last change"), QStringLiteral("Path")});
    for (const int column : {kFolders, kSize})
        horizontalHeaderItem(column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void FoundMailModel::list(const MailList& mail) {
    mail_ = mail;
    for (std::size_t index = 0; index < mail_.size(); ++index)
        if (!mail_[index].isGuess)
            addRow(index);
}

void FoundMailModel::fill(std::size_t index, const MailExtent& extent) {
    if (extent.isNothing)
        return;
    if (!rowOfIndex_.contains(index))
        addRow(index);
    const int row = rowOfIndex_[index];
    rows_[static_cast<std::size_t>(row)].extent = extent;
    fillCells(row);
}

std::vector<std::string> FoundMailModel::ticked() const {
    std::vector<std::string> paths;
    for (int row = 0; row < rowCount(); ++row)
        if (item(row)->checkState() == Qt::Checked)
            paths.push_back(rows_[static_cast<std::size_t>(row)].mail.path);
    return paths;
}

std::string FoundMailModel::pathOf(int row) const {
    const auto& [mail, extent] = rows_[static_cast<std::size_t>(row)];
    return extent.fault.empty() ? mail.path : std::string();
}

QString FoundMailModel::noteOf(int row) const {
    const auto& [mail, extent] = rows_[static_cast<std::size_t>(row)];
    QString note = pathText(mail.path);
    if (!extent.fault.empty())
        note += "\n" + toText(extent.fault);
    if (extent.unreadable > 0)
        note += QStringLiteral("\nFolders that cannot be read: %1. ").arg(extent.unreadable) +
                toText(extent.firstUnreadable);
    return note;
}

void FoundMailModel::addRow(std::size_t index) {
    const FoundMail& mail = mail_[index];
    QList<QStandardItem*> cells;
    for (const QString& text : {toText(mail.program), toText(mail.account), QString(), QString(),
                                QString(), pathText(mail.path)}) {
        cells.append(new QStandardItem(text));
        cells.last()->setEditable(false);
    }
    for (const int column : {kFolders, kSize})
        cells[column]->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    cells[kProgram]->setCheckable(true);
    cells[kProgram]->setCheckState(isAddressListed(mail.account) ? Qt::Unchecked : Qt::Checked);
    rowOfIndex_[index] = rowCount();
    rows_.push_back({mail, {}});
    appendRow(cells);
}

bool FoundMailModel::isAddressListed(const std::string& account) const {
    return account.find('@') != std::string::npos &&
           std::any_of(rows_.begin(), rows_.end(),
                       [&](const Row& row) { return row.mail.account == account; });
}

void FoundMailModel::fillCells(int row) {
    const MailExtent& extent = rows_[static_cast<std::size_t>(row)].extent;
    const bool isReadable = extent.fault.empty();
    const auto cell = [this, row](int column) { return item(row, column); };
    if (isReadable) {
        cell(kFolders)->setText(QLocale().toString(static_cast<qulonglong>(extent.folders)));
        cell(kSize)->setText(QLocale().formattedDataSize(static_cast<qint64>(extent.bytes), 1,
                                                         QLocale::DataSizeSIFormat));
        cell(kChanged)->setText(dayText(extent.changed));
    } else {
        cell(kChanged)->setText(QStringLiteral("cannot be read"));
    }
    if (!isReadable || extent.bytes == 0)
        cell(kProgram)->setCheckState(Qt::Unchecked);
    if (!isReadable) {
        cell(kProgram)->setCheckable(false);
        cell(kProgram)->setData({}, Qt::CheckStateRole);
    }
    QFont font;
    font.setItalic(!isReadable);
    for (int column = 0; column < kColumnCount; ++column) {
        cell(column)->setFont(font);
        cell(column)->setToolTip(plainToolTip(noteOf(row)));
    }
}

}  // namespace pelk
