#include "apps/desktop/mail_view.h"

#include <QApplication>
#include <QHeaderView>

#include "platform/guard.h"

namespace pelk {
namespace {

constexpr int kFolderWidth = 220;
constexpr int kMessagesWidth = 740;
constexpr int kFromWidth = 220;

/// Returns the width of a date column in the format of the user's locale.
int dateWidth() {
    const QString widest = MessageList::dateText({2028, 12, 28, 20, 48, 58});
    return QFontMetrics(QApplication::font()).horizontalAdvance(widest) + 24;
}

}  // namespace

MailView::MailView(MailSession& session, QLabel& status, Dialogs& dialogs)
    : folders_(session),
      status_(status),
      dialogs_(dialogs),
      folderView_(new QTreeView),
      messageView_(new QTableView) {
    addWidget(folderView_);
    addWidget(messageView_);
    buildFolders();
    buildMessages();
    setSizes({kFolderWidth, kMessagesWidth});
    setStretchFactor(1, 1);
    folderView_->setCurrentIndex(folders_.startIndex());
}

void MailView::buildFolders() {
    folderView_->setModel(&folders_.model());
    folderView_->setHeaderHidden(true);
    folderView_->expandAll();
    connect(folderView_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                guarded(dialogs_, [this, &index] { showFolder(index); });
            });
}

void MailView::buildMessages() {
    messageView_->setModel(&messages_);
    messageView_->setSelectionBehavior(QAbstractItemView::SelectRows);
    messageView_->setShowGrid(false);
    messageView_->setWordWrap(false);
    messageView_->verticalHeader()->hide();
    messageView_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    messageView_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    messageView_->horizontalHeader()->setSectionResizeMode(MessageList::kSubject,
                                                           QHeaderView::Stretch);
    messageView_->horizontalHeader()->setHighlightSections(false);
    messageView_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    messageView_->setColumnWidth(MessageList::kFrom, kFromWidth);
    messageView_->setColumnWidth(MessageList::kDate, dateWidth());
}

void MailView::showFolder(const QModelIndex& index) {
    if (!index.isValid())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        messages_.showFolder(folders_.folderOf(index));
    } catch (...) {
        QApplication::restoreOverrideCursor();
        throw;
    }
    QApplication::restoreOverrideCursor();
    const int count = messages_.rowCount();
    status_.setText(count == 1 ? QStringLiteral("1 message")
                               : QStringLiteral("%1 messages").arg(count));
}

}  // namespace pelk
