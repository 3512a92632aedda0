#include "apps/desktop/main_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "apps/desktop/about_box.h"
#include "apps/desktop/command_bar.h"
#include "apps/desktop/first_page.h"
#include "apps/desktop/mail_view.h"
#include "mailstore/imap/mixed_session.h"
#include "platform/desktop/qt/plain_tool_tip.h"
#include "platform/guard.h"

namespace pelk {
namespace {

constexpr QSize kWindowSize{960, 600};
constexpr int kLongestEntry = 80;

std::string toPath(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

QString toName(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

/// Returns a choice as a menu entry. A single "&" would mark a key there.
QString entryText(const MailChoice& choice) {
    QString text = toName(choice.front()).simplified();
    if (text.size() > kLongestEntry)
        text = "..." + text.right(kLongestEntry);
    if (choice.size() > 1)
        text += QStringLiteral(" and %1 more").arg(choice.size() - 1);
    return text.replace('&', QStringLiteral("&&"));
}

/// Shortens a path in the user's home.
QString withTilde(const QString& path) {
    const QString home = QDir::homePath();
    return path.startsWith(home + '/') ? '~' + path.mid(home.size()) : path;
}

std::vector<std::string> localPaths(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths.push_back(toPath(url.toLocalFile()));
    return paths;
}

}  // namespace

MainWindow::MainWindow(const std::vector<std::string>& paths, MailStoreOptions options,
                       Dialogs& dialogs, MainWindowOffers offers)
    : options_(std::move(options)),
      dialogs_(dialogs),
      offers_(std::move(offers)),
      viewState_(readViewState(offers_.choices.file())),
      status_(new QLabel),
      forMail_(new QActionGroup(this)) {
    setWindowTitle(QStringLiteral("Pelk mail"));
    buildStatusBar();
    buildMenus();
    auto* const bar = addToolBar(QStringLiteral("Standard"));
    bar->setObjectName(QStringLiteral("Standard"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    if (!restoreGeometry(viewState_.window))
        resize(kWindowSize);
    setAcceptDrops(true);
    if (paths.empty())
        showFirstPage();
    else
        showMail(paths);
}

void MainWindow::open(const std::vector<std::string>& paths) {
    showMail(paths);
    offers_.choices.remember(paths);
}

void MainWindow::openLastChoice() {
    if (const std::vector<MailChoice> recent = offers_.choices.recent(); !recent.empty())
        showMail(recent.front());
}

std::unique_ptr<MailSession> MainWindow::session() {
    if (paths_.empty())
        throw Error("No mail is open yet. Choose the mail in the mail window first.");
    return openSession(paths_);
}

std::unique_ptr<CommandPopup> MainWindow::addPopup(std::string_view bar, std::string_view caption,
                                                   std::string_view tag) {
    return addToolBarPopup(*this, *commands_, dialogs_, bar, caption, tag);
}

void MainWindow::tell(const std::string& text) {
    status_->setText(QString::fromStdString(text));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    guarded(dialogs_, [this] { saveViewState(); });
    QApplication::quit();
}

void MainWindow::saveViewState() {
    viewState_.window = saveGeometry();
    const std::string& file = offers_.choices.file();
    if (viewState_ != readViewState(file))
        writeViewState(file, viewState_);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!localPaths(*event->mimeData()).empty())
        event->acceptProposedAction();
}

/// The program from which the mail was dragged waits until this function returns, even while a
/// message box is open.
void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this,
        [this, paths = localPaths(*event->mimeData())] {
            guarded(dialogs_, [this, &paths] { open(paths); });
        },
        Qt::QueuedConnection);
}

void MainWindow::buildStatusBar() {
    status_->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(status_, 1);
    if (offers_.database.empty())
        return;
    auto* const database = new QLabel;
    database->setTextFormat(Qt::PlainText);
    const QString name = toName(offers_.database);
    database->setText(QStringLiteral("Database: ") + withTilde(name));
    database->setToolTip(plainToolTip(name));
    statusBar()->addPermanentWidget(database);
}

void MainWindow::buildMenus() {
    buildFileMenu();
    buildEditMenu();
    buildViewMenu();
    commands_ = menuBar()->addMenu(QStringLiteral("&Pelk"));
    buildHelpMenu();
}

void MainWindow::buildFileMenu() {
    QMenu& menu = *menuBar()->addMenu(QStringLiteral("&File"));
    addToMenu(menu, QStringLiteral("&Mail on this computer"), {}, [this] { showFirstPage(); });
    addToMenu(menu, QStringLiteral("&Open..."), QKeySequence::Open, [this] { openFolder(); });
    addToMenu(menu, QStringLiteral("Open a f&ile..."), {}, [this] { openFile(); });
    if (offers_.addServer)
        addToMenu(menu, QStringLiteral("Add a mail &server..."), {}, [this] { addServer(); });
    QMenu& recent = *menu.addMenu(QStringLiteral("&Recent"));
    connect(&menu, &QMenu::aboutToShow, this, [this, &recent] { fillRecent(recent); });
    menu.addSeparator();
    addToMenu(menu, QStringLiteral("&Quit"), QKeySequence::Quit, [this] { close(); });
}

void MainWindow::buildEditMenu() {
    edit_ = menuBar()->addMenu(QStringLiteral("&Edit"));
    QMenu& menu = *edit_;
    addToMenu(menu, QStringLiteral("&Copy"), QKeySequence::Copy, [this] { copy(); });
    addForMail(menu, QStringLiteral("&Find"), QKeySequence::Find,
               [](MailView& view) { view.find(); });
}

void MainWindow::buildViewMenu() {
    QMenu& menu = *menuBar()->addMenu(QStringLiteral("&View"));
    QAction* const folders = addForMail(menu, QStringLiteral("&Folders"), {}, {});
    folders->setCheckable(true);
    folders->setChecked(viewState_.showsFolders);
    connect(folders, &QAction::triggered, this,
            [this](bool shown) { mailView()->showFolders(shown); });
    QMenu& sort = *menu.addMenu(QStringLiteral("&Sort by"));
    const auto addSort = [&](const QString& caption, int column, Qt::SortOrder order) {
        addForMail(sort, caption, {},
                   [column, order](MailView& view) { view.sortBy(column, order); });
    };
    addSort(QStringLiteral("&From"), MessageRows::kFrom, Qt::AscendingOrder);
    addSort(QStringLiteral("&Subject"), MessageRows::kSubject, Qt::AscendingOrder);
    addSort(QStringLiteral("&Date, latest first"), MessageRows::kDate, Qt::DescendingOrder);
    addSort(QStringLiteral("&Order of the folder"), -1, Qt::AscendingOrder);
    addForMail(menu, QStringLiteral("&Read again"), QKeySequence::Refresh,
               [this](MailView&) { showMail(paths_); });
}

void MainWindow::buildHelpMenu() {
    QMenu& menu = *menuBar()->addMenu(QStringLiteral("&Help"));
    if (offers_.openHelp) {
        addToMenu(menu, QStringLiteral("&Contents"), QKeySequence::HelpContents,
                  [this] { offers_.openHelp("index.html"); });
        addToMenu(menu, QStringLiteral("&Keyboard"), {},
                  [this] { offers_.openHelp("keyboard.html"); });
        menu.addSeparator();
    }
    addToMenu(menu, QStringLiteral("&About Pelk"), {}, [this] { showAbout(); });
}

void MainWindow::showAbout() {
    std::function<void(const std::string&)> openHelp;
    if (offers_.openHelp)
        openHelp = [this](const std::string& page) {
            guarded(dialogs_, [&] { offers_.openHelp(page); });
        };
    AboutBox(this, openHelp).exec();
}

QAction* MainWindow::addToMenu(QMenu& menu, const QString& caption, const QKeySequence& keys,
                               const std::function<void()>& act) {
    QAction* const action = menu.addAction(caption);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, act] { guarded(dialogs_, act); });
    return action;
}

/// Adds an entry that is available while mail is open.
QAction* MainWindow::addForMail(QMenu& menu, const QString& caption, const QKeySequence& keys,
                                const std::function<void(MailView&)>& act) {
    QAction* const action = addToMenu(menu, caption, keys, [this, act] {
        if (MailView* const view = mailView(); view != nullptr && act)
            act(*view);
    });
    forMail_->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    forMail_->addAction(action);
    return action;
}

/// Null while the first page is shown.
MailView* MainWindow::mailView() const {
    return dynamic_cast<MailView*>(centralWidget());
}

/// A text field copies its own selection.
void MainWindow::copy() const {
    if (auto* const field = qobject_cast<QLineEdit*>(focusWidget()))
        field->copy();
    else if (const MailView* const view = mailView())
        view->copy();
}

void MainWindow::fillRecent(QMenu& menu) {
    menu.clear();
    for (const MailChoice& choice : offers_.choices.recent())
        addToMenu(menu, entryText(choice), {}, [this, choice] { open(choice); });
    menu.setEnabled(!menu.isEmpty());
}

void MainWindow::showMail(const std::vector<std::string>& paths) {
    setCentral(new MailView(*openSession(paths), {*status_, dialogs_, language_, viewState_}));
    paths_ = paths;
}

std::unique_ptr<MailSession> MainWindow::openSession(const std::vector<std::string>& paths) const {
    return openMixedSession(paths, options_, [this](const std::string& url) {
        if (!offers_.openServer)
            throw Error("The mail on a server cannot be opened here.");
        return offers_.openServer(url, options_);
    });
}

void MainWindow::showFirstPage() {
    FirstPageActs acts;
    acts.open = [this](const std::vector<std::string>& paths) { open(paths); };
    acts.openFolder = [this] { openFolder(); };
    acts.openFile = [this] { openFile(); };
    if (offers_.addServer)
        acts.addServer = [this] { addServer(); };
    acts.showExample = offers_.showExample;
    setCentral(new FirstPage(offers_.places, std::move(acts), dialogs_));
    paths_.clear();
    status_->clear();
}

void MainWindow::openFolder() {
    const QString folder = QFileDialog::getExistingDirectory(
        this, QStringLiteral("Pelk: choose the folder that holds your mail"), QDir::homePath());
    if (!folder.isEmpty())
        open({toPath(folder)});
}

void MainWindow::openFile() {
    const QString file = QFileDialog::getOpenFileName(
        this, QStringLiteral("Pelk: choose the file that holds your mail"), QDir::homePath());
    if (!file.isEmpty())
        open({toPath(file)});
}

void MainWindow::addServer() {
    if (const std::optional<std::string> store = offers_.addServer()) {
        MailChoice mail = paths_;
        mail.push_back(*store);
        open(mail);
    }
}

/// Deletes the previous page later, because one of its buttons may have called this; or with the
/// window, if that comes first.
void MainWindow::setCentral(QWidget* widget) {
    if (QWidget* const old = takeCentralWidget()) {
        // Also hides it.
        old->setParent(this);
        old->deleteLater();
    }
    setCentralWidget(widget);
    forMail_->setEnabled(mailView() != nullptr);
    // Only the visible page takes the focus. Both pages begin with a tree.
    widget->show();
    widget->findChild<QTreeView*>()->setFocus();
}

}  // namespace pelk
