// The mail window while no mail is open, and the ways to open some.

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTreeView>

#include "apps/desktop/main_window.h"
#include "tests/support/qt_acts.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temporary_folder.h"

namespace pelk {
namespace {

constexpr const char* kMail =
    "From a Tue Mar  4 09:12:00 2025\nFrom: Ann <ann@a.example>\nTo: bob@b.example\n\nHi\n\n";

class MainWindowTest : public ::testing::Test {
 protected:
    TemporaryFolder folder;
    std::string home = folder.path() + "/home";
    ScriptedDialogs dialogs;
    std::unique_ptr<MainWindow> window;
    int examples = 0;

    MainWindowTest() { std::filesystem::create_directory(home); }

    /// An account of Thunderbird with one folder; without mail when there is no content.
    void account(const std::string& name, const std::string& content) const {
        folder.write("home/.thunderbird/profiles.ini", "[Profile0]\nIsRelative=1\nPath=p\n");
        folder.write("home/.thunderbird/p/Mail/" + name + "/Inbox", content);
    }
    std::string pathOf(const std::string& account) const {
        return home + "/.thunderbird/p/Mail/" + account;
    }
    MainWindowOffers offers() {
        MainWindowOffers offers;
        offers.places = userPlaces(
            [this](const char* name) { return name == std::string("HOME") ? home : ""; });
        offers.places.spool.clear();
        offers.choices = MailChoices(folder.path() + "/config/pelk/window.ini");
        offers.showExample = [this] { ++examples; };
        return offers;
    }
    void openWindow(const std::vector<std::string>& paths = {}) {
        window = std::make_unique<MainWindow>(paths, MailStoreOptions{}, dialogs, offers());
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    QPushButton* button(const std::string& caption) const {
        for (QPushButton* found : window->centralWidget()->findChildren<QPushButton*>())
            if (shownText(*found) == caption)
                return found;
        return nullptr;
    }
    /// The access keys of the menus and of the buttons below.
    QStringList accessKeys() const {
        QStringList keys;
        for (const QAction* const menu : window->menuBar()->actions())
            keys << QKeySequence::mnemonic(menu->text()).toString();
        for (const QPushButton* const found : window->centralWidget()->findChildren<QPushButton*>())
            keys << QKeySequence::mnemonic(found->text()).toString();
        return keys;
    }
    bool says(const QString& text) const {
        for (const QLabel* label : window->centralWidget()->findChildren<QLabel*>())
            if (label->text().contains(text))
                return true;
        return false;
    }
    void waitUntilFound() const {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !says("Looking for mail"); }));
    }
    QAction* entry(const QString& caption) const {
        QMenu* const file = window->menuBar()->actions().at(0)->menu();
        emit file->aboutToShow();
        for (QAction* action : file->findChildren<QAction*>())
            if (QString(action->text()).remove('&') == caption)
                return action;
        return nullptr;
    }
    QTableView& messages() const { return *window->centralWidget()->findChild<QTableView*>(); }
    /// The subjects that the list shows, in order.
    std::string subjects() const {
        std::string text;
        for (int row = 0; row < messages().model()->rowCount(); ++row)
            text += messages().model()->index(row, 1).data().toString().toStdString() + " ";
        return text;
    }
    QAction* menuEntry(const QString& caption) const {
        for (QAction* action : window->menuBar()->findChildren<QAction*>())
            if (QString(action->text()).remove('&') == caption)
                return action;
        return nullptr;
    }
    /// The table as lines "[x] account folders", without a box what cannot be ticked.
    std::string table() const {
        const QAbstractItemModel& model =
            *window->centralWidget()->findChild<QTreeView*>()->model();
        std::string text;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QVariant box = model.index(row, 0).data(Qt::CheckStateRole);
            text += !box.isValid() ? "" : box.toInt() == Qt::Checked ? "[x] " : "[ ] ";
            text += model.index(row, 1).data().toString().toStdString() + " " +
                    model.index(row, 2).data().toString().toStdString() + "\n";
        }
        return text;
    }
    /// Returns the names of the stores that are open, or the error.
    std::string openStores() {
        std::string names;
        try {
            const auto folders = window->session()->folders();
            while (const auto found = folders->next())
                names += found->name() + " ";
        } catch (const Error& error) {
            names = error.what();
        }
        return names;
    }
};

TEST_F(MainWindowTest, listsTheMailOnThisComputerAndOpensWhatIsTicked) {
    account("ann@a.example", kMail);
    account("empty", "");
    account("notes", "These are notes.");
    account("old", kMail);
    folder.write("home/.mozilla/seamonkey/profiles.ini", "[Profile0]\nIsRelative=1\nPath=p\n");
    folder.write("home/.mozilla/seamonkey/p/Mail/ann@a.example/Inbox", kMail);
    openWindow();
    const auto popup = window->addPopup("Standard", "Pelk", "menu");
    waitUntilFound();
    EXPECT_EQ(table(), "[x] ann@a.example 1\nempty \nnotes \n[x] old 1\n[ ] ann@a.example 1\n");
    EXPECT_EQ(openStores(), "No mail is open yet. Choose the mail in the mail window first.");
    QTreeView& view = *window->centralWidget()->findChild<QTreeView*>();
    view.setCurrentIndex(view.model()->index(2, 1));
    EXPECT_TRUE(says("holds no mail"));
    view.model()->setData(view.model()->index(3, 0), Qt::Unchecked, Qt::CheckStateRole);
    clickAt(*button("Open"), {5, 5});
    EXPECT_EQ(openStores(), "ann@a.example ");
    EXPECT_TRUE(window->centralWidget()->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "menu") << "with the keyboard";

    // The program opens the last choice the next time and lists it in the menu.
    openWindow();
    window->openLastChoice();
    EXPECT_EQ(openStores(), "ann@a.example ");
    window->open({pathOf("old")});
    ASSERT_NE(entry(QString::fromStdString(pathOf("ann@a.example"))), nullptr);
    entry(QString::fromStdString(pathOf("ann@a.example")))->trigger();
    EXPECT_EQ(openStores(), "ann@a.example ");
    entry("Mail on this computer")->trigger();
    waitUntilFound();
}

TEST_F(MainWindowTest, saysThatThereIsNoMailAndOffersWhatThereIs) {
    openWindow();
    waitUntilFound();
    EXPECT_TRUE(says("No mail was found."));
    EXPECT_FALSE(button("Open")->isEnabled());
    EXPECT_EQ(button("Add a mail server..."), nullptr);
    EXPECT_FALSE(accessKeys().contains(""));
    EXPECT_EQ(QStringList(accessKeys()).removeDuplicates(), 0);
    clickAt(*button("Look at the example"), {5, 5});
    EXPECT_EQ(examples, 1);
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/config"));
}

TEST_F(MainWindowTest, searchesSortsAndOpensMessages) {
    const auto mail = [](const std::string& from, const std::string& subject) {
        return "From a Tue Mar  4 09:12:00 2025\nFrom: " + from +
               " <a@a.example>\nSubject: " + subject + "\n\n<b>Hi</b>\n\n";
    };
    const std::string box =
        folder.write("a box", mail("Zoë Berg", "b") + mail("Åsa", "c") + mail("bob", "Re: zoe"));
    openWindow({box});
    EXPECT_EQ(subjects(), "b c Re: zoe ");
    QLineEdit& search = *window->centralWidget()->findChild<QLineEdit*>();
    menuEntry("Find")->trigger();
    QTest::keyClicks(QApplication::focusWidget(), "ZOE");
    EXPECT_EQ(subjects(), "b Re: zoe ");
    QTest::keyClicks(&search, " berg");
    EXPECT_EQ(subjects(), "b ");
    EXPECT_EQ(window->statusBar()->findChild<QLabel*>()->text(), "1 of 3 messages found");
    QTest::keyClick(&search, Qt::Key_Return);
    messages().setCurrentIndex(messages().model()->index(0, 0));
    menuEntry("Copy")->trigger();
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Zoë Berg\tb\t"));
    QTest::keyClick(&messages(), Qt::Key_Return);
    auto* const opened = window->findChild<QPlainTextEdit*>();
    EXPECT_EQ(opened->toPlainText(), "<b>Hi</b>\n\n") << "no markup of a message is interpreted";
    EXPECT_EQ(opened->window()->windowTitle(), "b");
    opened->window()->close();

    QTest::keyClick(&search, Qt::Key_Escape);
    menuEntry("From")->trigger();
    EXPECT_EQ(subjects(), "c Re: zoe b ");
    EXPECT_EQ(messages().currentIndex().row(), 2) << "the message stays current";
    window->close();
    openWindow({box});
    EXPECT_EQ(subjects(), "c Re: zoe b ") << "the order is remembered";
    menuEntry("Order of the folder")->trigger();
    EXPECT_EQ(subjects(), "b c Re: zoe ");
    folder.write("a box", mail("Ann", "new"));
    menuEntry("Read again")->trigger();
    EXPECT_EQ(subjects(), "new ");
}

TEST_F(MainWindowTest, hasMenusWithoutClashes) {
    openWindow();
    EXPECT_FALSE(menuEntry("Find")->isEnabled()) << "no mail is open";
    const auto popup = window->addPopup("Standard", "Pelk", "menu");
    std::string clicked;
    for (const char* caption : {"View your community", "Check", "Vote & check"})
        popup->addButton(caption, caption, [&clicked, caption] { clicked += caption; });
    window->findChild<QAction*>("Check")->trigger();
    EXPECT_EQ(clicked, "Check");
    const auto accessKey = [](const QString& text) {
        return QRegularExpression("(?<!&)&([^&])").match(text).captured(1).toLower();
    };
    for (const QMenu* menu : window->menuBar()->findChildren<QMenu*>()) {
        QSet<QString> keys;
        for (const QAction* action : menu->actions()) {
            const QString key = action->isSeparator() ? QString() : accessKey(action->text());
            EXPECT_TRUE(action->isSeparator() || !key.isEmpty()) << action->text().toStdString();
            EXPECT_FALSE(keys.contains(key) && !key.isEmpty()) << action->text().toStdString();
            keys.insert(key);
        }
    }
}

TEST_F(MainWindowTest, namesTheStepThatItUndoes) {
    openWindow();
    std::string step;
    std::string acts;
    window->setUndo({[&] { acts += "u"; }, [&] { throw Error("The disk is full."); },
                     [&] { return step; }, [] { return std::string("merge"); }});
    QMenu& edit = *window->menuBar()->actions().at(1)->menu();
    emit edit.aboutToShow();
    EXPECT_FALSE(menuEntry("Undo")->isEnabled());
    step = "rename of A & B";
    emit edit.aboutToShow();
    EXPECT_EQ(shownText(*edit.actions().at(0)), "Undo rename of A & B");
    edit.actions().at(0)->trigger();
    EXPECT_EQ(acts, "u");
    dialogs.expectMessage("The disk is full.");
    menuEntry("Redo merge")->trigger();
}

TEST_F(MainWindowTest, opensWhatIsDropped) {
    const std::string box = folder.write("a box", kMail);
    openWindow();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(box)), QUrl("http://x.example/")});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_TRUE(QTest::qWaitFor([this] { return openStores() == "a box "; }));
}

TEST_F(MainWindowTest, staysAsItIsWhenMailCannotBeOpenedOrRemembered) {
    account("old", kMail);
    openWindow({pathOf("old")});
    EXPECT_THROW(window->open({folder.path() + "/none"}), Error);
    EXPECT_EQ(openStores(), "old ");
    folder.write("config", "in the way");
    EXPECT_THROW(window->open({home + "/.thunderbird/p/Mail"}), Error);
    EXPECT_EQ(openStores(), "Mail ");
}

}  // namespace
}  // namespace pelk
