#include "apps/desktop/main_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "apps/desktop/command_bar.h"
#include "apps/desktop/first_page.h"
#include "apps/desktop/mail_view.h"
#include "mailstore/imap/mixed_session.h"
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
      status_(new QLabel) {
    setWindowTitle(QStringLiteral("Pelk mail"));
    status_->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(status_);
    buildMenu();
    auto* const bar = addToolBar(QStringLiteral("Standard"));
    bar->setObjectName(QStringLiteral("Standard"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
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
    return addToolBarPopup(*this, dialogs_, bar, caption, tag);
}

void MainWindow::tell(const std::string& text) {
    status_->setText(QString::fromStdString(text));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    QApplication::quit();
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

void MainWindow::buildMenu() {
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

void MainWindow::addToMenu(QMenu& menu, const QString& caption, const QKeySequence& keys,
                           const std::function<void()>& act) {
    QAction* const action = menu.addAction(caption);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, act] { guarded(dialogs_, act); });
}

void MainWindow::fillRecent(QMenu& menu) {
    menu.clear();
    for (const MailChoice& choice : offers_.choices.recent())
        addToMenu(menu, entryText(choice), {}, [this, choice] { open(choice); });
    menu.setEnabled(!menu.isEmpty());
}

void MainWindow::showMail(const std::vector<std::string>& paths) {
    setCentral(new MailView(*openSession(paths), *status_, dialogs_));
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
    // Only the visible page takes the focus. Both pages begin with a tree.
    widget->show();
    widget->findChild<QTreeView*>()->setFocus();
}

}  // namespace pelk
