#include "apps/desktop/mail_view.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

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

/// Esc clears the text.
class SearchField : public QLineEdit {
 protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape)
            clear();
        else
            QLineEdit::keyPressEvent(event);
    }
};

/// Shows the hourglass while it exists.
class BusyPointer {
 public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
};

}  // namespace

MailView::MailView(MailSession& session, const MailViewPlace& place)
    : place_(place),
      folders_(session),
      messages_(place.language),
      folderView_(new QTreeView),
      search_(new SearchField),
      messageView_(new QTableView) {
    addWidget(folderView_);
    addWidget(makeMessages());
    buildFolders();
    setSizes({kFolderWidth, kMessagesWidth});
    setStretchFactor(1, 1);
    restoreState();
    messages_.onState = [this] { place_.status.setText(messages_.stateText()); };
    folderView_->setCurrentIndex(folders_.startIndex());
    connect(this, &QSplitter::splitterMoved, this, [this] { noteState(); });
}

void MailView::buildFolders() {
    folderView_->setModel(&folders_.model());
    folderView_->setHeaderHidden(true);
    folderView_->setAccessibleName(QStringLiteral("Folders"));
    folderView_->expandAll();
    connect(folderView_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                guarded(place_.dialogs, [this, &index] { showFolder(index); });
            });
}

QWidget* MailView::makeMessages() {
    auto* const pane = new QWidget;
    auto* const layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    search_->setPlaceholderText(QStringLiteral("Search sender and subject"));
    search_->setAccessibleName(search_->placeholderText());
    search_->setClearButtonEnabled(true);
    connect(search_, &QLineEdit::textChanged, this,
            [this](const QString& text) { messages_.search(text); });
    connect(search_, &QLineEdit::returnPressed, this, [this] { messageView_->setFocus(); });
    layout->addWidget(search_);
    layout->addWidget(messageView_, 1);
    buildTable();
    buildHeader();
    return pane;
}

void MailView::buildTable() {
    messageView_->setModel(&messages_);
    messageView_->setAccessibleName(QStringLiteral("Messages"));
    messageView_->setSelectionBehavior(QAbstractItemView::SelectRows);
    messageView_->setTabKeyNavigation(false);
    messageView_->setShowGrid(false);
    messageView_->setWordWrap(false);
    messageView_->verticalHeader()->hide();
    messageView_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    messageView_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    connect(messageView_, &QTableView::activated, this, [this](const QModelIndex& index) {
        guarded(place_.dialogs, [this, &index] { openMessage(index); });
    });
    keepCurrentMessage();
}

void MailView::buildHeader() {
    QHeaderView& header = *messageView_->horizontalHeader();
    header.setSectionResizeMode(MessageRows::kSubject, QHeaderView::Stretch);
    header.setHighlightSections(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // A third click shows the order of the folder again.
    header.setSortIndicatorClearable(true);
    header.setSortIndicator(-1, Qt::AscendingOrder);
    messageView_->setSortingEnabled(true);
    messageView_->setColumnWidth(MessageRows::kFrom, kFromWidth);
    messageView_->setColumnWidth(MessageRows::kDate, dateWidth());
    connect(&header, &QHeaderView::sectionResized, this, [this] { noteState(); });
    connect(&header, &QHeaderView::sortIndicatorChanged, this, [this] { noteState(); });
}

void MailView::restoreState() {
    QHeaderView& header = *messageView_->horizontalHeader();
    if (header.restoreState(place_.state.columns))
        messages_.sort(header.sortIndicatorSection(), header.sortIndicatorOrder());
    QSplitter::restoreState(place_.state.widths);
    folderView_->setVisible(place_.state.showsFolders);
    isRestoring_ = false;
}

void MailView::noteState() {
    if (isRestoring_)
        return;
    place_.state.columns = messageView_->horizontalHeader()->saveState();
    place_.state.widths = QSplitter::saveState();
}

/// The current message stays current when the list is searched or sorted.
void MailView::keepCurrentMessage() {
    connect(&messages_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        const QModelIndex index = messageView_->currentIndex();
        current_ = index.isValid() ? std::optional(messages_.numberOf(index.row())) : std::nullopt;
    });
    connect(&messages_, &QAbstractItemModel::modelReset, this, [this] {
        const std::optional<int> row = current_ ? messages_.rowOf(*current_) : std::nullopt;
        if (row)
            messageView_->setCurrentIndex(messages_.index(*row, 0));
    });
}

void MailView::find() {
    search_->setFocus();
    search_->selectAll();
}

void MailView::copy() const {
    QStringList lines;
    for (const QModelIndex& row : messageView_->selectionModel()->selectedRows()) {
        QStringList cells;
        for (int column = 0; column < messages_.columnCount(); ++column)
            cells += messages_.index(row.row(), column).data().toString();
        lines += cells.join('\t');
    }
    if (!lines.isEmpty())
        QApplication::clipboard()->setText(lines.join('\n'));
}

void MailView::showFolders(bool shown) {
    folderView_->setVisible(shown);
    place_.state.showsFolders = shown;
}

void MailView::sortBy(int column, Qt::SortOrder order) {
    messageView_->sortByColumn(column, order);
}

void MailView::showFolder(const QModelIndex& index) {
    if (!index.isValid())
        return;
    const BusyPointer busy;
    place_.status.clear();
    messages_.showFolder(folders_.folderOf(index));
    messageView_->scrollToTop();
}

void MailView::openMessage(const QModelIndex& index) {
    if (!index.isValid())
        return;
    const MessageText message = [&] {
        const BusyPointer busy;
        return messages_.read(index.row());
    }();
    if (messageWindow_ == nullptr)
        messageWindow_ = new MessageWindow(this);
    messageWindow_->showMessage(message);
}

}  // namespace pelk
