#include "apps/desktop/first_page.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/guard.h"

namespace pelk {
namespace {

constexpr int kWidestColumn = 260;
constexpr int kMargin = 16;

/// Rows and columns with some room around their texts.
class RoomyCells : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + kRoom;
    }

 protected:
    /// Right-aligned numbers would touch the next column.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->displayAlignment.testFlag(Qt::AlignRight))
            option->text += QChar(QChar::Nbsp);
    }

 private:
    static constexpr QSize kRoom{16, 8};
};

QLabel* plainLabel() {
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel* heading() {
    QLabel* const label = plainLabel();
    label->setText(QStringLiteral("Mail found on this computer"));
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    label->setFont(font);
    return label;
}

}  // namespace

FirstPage::FirstPage(const UserPlaces& places, FirstPageActs acts, Dialogs& dialogs)
    : acts_(std::move(acts)),
      dialogs_(dialogs),
      view_(new QTreeView),
      state_(plainLabel()),
      note_(plainLabel()),
      finder_(places, {[this](const MailList& mail) {
                           model_.list(mail);
                           fitColumns();
                           showState();
                       },
                       [this](std::size_t index, const MailExtent& extent) {
                           model_.fill(index, extent);
                           fitColumns();
                           showState();
                       },
                       [this](const std::string& fault) {
                           isDone_ = true;
                           fault_ = QString::fromStdString(fault);
                           showState();
                       }}) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(heading());
    QLabel* const welcome = plainLabel();
    welcome->setText(QStringLiteral(
        "Pelk counts the e-mails between people and shows who is close to whom. First choose the "
        "mail, then \"Check for new e-mails\" and \"View your community\" in the menu Pelk."));
    layout->addWidget(welcome);
    layout->addWidget(state_);
    layout->addWidget(makeTable(), 1);
    // Room for a path and a fault, so that the table keeps its size.
    note_->setMinimumHeight(2 * note_->fontMetrics().lineSpacing());
    note_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(note_);
    layout->addWidget(makeButtons());
    connect(&model_, &QStandardItemModel::itemChanged, this, [this] { showState(); });
    showState();
}

QWidget* FirstPage::makeTable() {
    view_->setModel(&model_);
    view_->setItemDelegate(new RoomyCells(view_));
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setTextElideMode(Qt::ElideMiddle);
    view_->setAccessibleName(QStringLiteral("Mail found on this computer"));
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) { showNote(index); });
    connect(view_, &QTreeView::activated, this, [this](const QModelIndex& index) {
        const std::string path = model_.pathOf(index.row());
        if (!path.empty())
            run([this, path] { acts_.open({path}); });
    });
    return view_;
}

QWidget* FirstPage::makeButtons() {
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    open_ = addButton(*row, QStringLiteral("&Open"), [this] { acts_.open(model_.ticked()); });
    auto* const menu = new QMenu(row);
    for (const auto& [caption, act] : {std::pair("A &folder...", &FirstPageActs::openFolder),
                                       std::pair("A f&ile...", &FirstPageActs::openFile)})
        connect(menu->addAction(caption), &QAction::triggered, this,
                [this, act = act] { run(acts_.*act); });
    addButton(*row, QStringLiteral("Open o&ther mail..."), {})->setMenu(menu);
    if (acts_.addServer)
        addButton(*row, QStringLiteral("Add a mail &server..."), acts_.addServer);
    layout->addStretch(1);
    if (acts_.showExample)
        addButton(*row, QStringLiteral("&Look at the example"), acts_.showExample);
    return row;
}

QPushButton* FirstPage::addButton(QWidget& row, const QString& caption,
                                  const std::function<void()>& act) {
    auto* const button = new QPushButton(caption, &row);
    row.layout()->addWidget(button);
    if (act)
        connect(button, &QPushButton::clicked, this, [this, act] { run(act); });
    return button;
}

void FirstPage::run(const std::function<void()>& act) {
    guarded(dialogs_, act);
}

/// The path gets the remaining width, and is shortened in the middle.
void FirstPage::fitColumns() {
    if (!view_->currentIndex().isValid())
        view_->setCurrentIndex(model_.index(0, 0));
    for (int column = 0; column < FoundMailModel::kPath; ++column) {
        view_->resizeColumnToContents(column);
        view_->setColumnWidth(column, std::min(view_->columnWidth(column), kWidestColumn));
    }
}

void FirstPage::showNote(const QModelIndex& index) {
    note_->setText(index.isValid() ? model_.noteOf(index.row()) : QString());
}

void FirstPage::showState() {
    const bool isEmpty = model_.rowCount() == 0;
    if (!isDone_)
        state_->setText(QStringLiteral("Looking for mail..."));
    else if (!fault_.isEmpty())
        state_->setText(fault_);
    else if (isEmpty)
        state_->setText(
            QStringLiteral("No mail was found. Open a folder or a file that holds mail, or drag it "
                           "here."));
    else
        state_->setText(
            QStringLiteral("Tick the mail that you want to see. Pelk never changes it."));
    open_->setEnabled(!model_.ticked().empty());
    showNote(view_->currentIndex());
}

}  // namespace pelk
