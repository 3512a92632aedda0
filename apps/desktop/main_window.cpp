#include "apps/desktop/main_window.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>

#include "apps/desktop/command_bar.h"
#include "platform/guard.h"

namespace pelk {
namespace {

constexpr QSize kWindowSize{960, 600};
constexpr int kFolderWidth = 220;
constexpr int kFromWidth = 220;

/// Returns the width of a date column in the format of the user's locale.
int dateWidth() {
    const QString widest = MessageList::dateText({2028, 12, 28, 20, 48, 58});
    return QFontMetrics(QApplication::font()).horizontalAdvance(widest) + 24;
}

}  // namespace

MainWindow::MainWindow(std::vector<std::string> paths, MailStoreOptions options, Dialogs& dialogs)
    : paths_(std::move(paths)),
      options_(std::move(options)),
      dialogs_(dialogs),
      folders_(*openMailSession(paths_, options_)),
      folderView_(new QTreeView),
      messageView_(new QTableView),
      status_(new QLabel) {
    setWindowTitle(QStringLiteral("Pelk mail"));
    status_->setTextFormat(Qt::PlainText);
    auto* const bar = addToolBar(QStringLiteral("Standard"));
    bar->setObjectName(QStringLiteral("Standard"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    buildViews();
    resize(kWindowSize);
    connect(folderView_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                guarded(dialogs_, [this, &index] { showFolder(index); });
            });
    statusBar()->addWidget(status_);
    folderView_->setCurrentIndex(folders_.startIndex());
}

std::unique_ptr<MailSession> MainWindow::session() {
    return openMailSession(paths_, options_);
}

std::unique_ptr<CommandPopup> MainWindow::addPopup(std::string_view bar, std::string_view caption,
                                                   std::string_view tag) {
    return addToolBarPopup(*this, dialogs_, bar, caption, tag);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    QApplication::quit();
}

void MainWindow::buildViews() {
    folderView_->setModel(&folders_.model());
    folderView_->setHeaderHidden(true);
    folderView_->expandAll();
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
    auto* const splitter = new QSplitter;
    splitter->addWidget(folderView_);
    splitter->addWidget(messageView_);
    splitter->setSizes({kFolderWidth, kWindowSize.width() - kFolderWidth});
    splitter->setStretchFactor(1, 1);
    setCentralWidget(splitter);
}

void MainWindow::showFolder(const QModelIndex& index) {
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
    status_->setText(count == 1 ? QStringLiteral("1 message")
                                : QStringLiteral("%1 messages").arg(count));
}

}  // namespace pelk
