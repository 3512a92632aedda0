// Accounts on mail servers: how they are entered, tested, opened, and their passwords kept.

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <future>
#include <map>

#include "apps/desktop/main_window.h"
#include "apps/desktop/server_dialog.h"
#include "apps/desktop/server_mail.h"
#include "apps/desktop/server_wait.h"
#include "tests/imap/dovecot.h"
#include "tests/support/message_of.h"
#include "tests/support/qt_acts.h"
#include "tests/support/scripted_dialogs.h"

namespace pelk {
namespace {

class MemoryKeyring : public Keyring {
 public:
    std::map<std::string, std::string> passwords;
    bool isBroken = false;

    std::optional<std::string> find(const std::string& key) override {
        failIfBroken();
        const auto found = passwords.find(key);
        return found == passwords.end() ? std::nullopt : std::optional(found->second);
    }
    void keep(const std::string& key, const std::string& password) override {
        failIfBroken();
        passwords[key] = password;
    }

 private:
    void failIfBroken() const {
        if (isBroken)
            throw Error("No keyring.");
    }
};

/// Calls `act` with the next modal dialog of that kind, once it is shown.
template <typename Box>
void inNext(const std::function<void(Box&)>& act) {
    QTimer::singleShot(10, [act] {
        auto* const box = dynamic_cast<Box*>(QApplication::activeModalWidget());
        if (box == nullptr)
            inNext(act);
        else
            act(*box);
    });
}

QLineEdit& field(const QWidget& dialog, const char* name) {
    return *dialog.findChild<QLineEdit*>(name);
}

void enter(const QWidget& dialog, const char* name, const QString& text) {
    field(dialog, name).clear();
    QTest::keyClicks(&field(dialog, name), text);
}

/// An account on this computer, which needs no encryption.
void enterAccount(const QWidget& dialog, std::uint16_t port, const QString& password) {
    enter(dialog, "address", "jane");
    enter(dialog, "server", "127.0.0.1");
    dialog.findChild<QComboBox*>()->setCurrentIndex(1);
    enter(dialog, "port", QString::number(port));
    enter(dialog, "password", password);
}

void click(const QWidget& dialog, const std::string& caption) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (shownText(*button) == caption)
            return clickAt(*button, {5, 5});
    ADD_FAILURE() << "There is no button " << caption;
}

std::string stateOf(const QWidget& dialog) {
    return dialog.findChild<QLabel*>("state")->text().toStdString();
}

/// Presses "Test" and returns the result that the dialog shows.
std::string tested(const QWidget& dialog) {
    click(dialog, "Test");
    EXPECT_TRUE(QTest::qWaitFor([&] { return stateOf(dialog) != "Connecting..."; }, 30'000));
    return stateOf(dialog);
}

TEST(ServerEntry, makesAnAddressThatIsReadAgain) {
    EXPECT_EQ(urlOf({"imap.example.org", "ann@example.org", ""}),
              "imaps://ann%40example.org@imap.example.org");
    const ImapAccount account = readImapAddress(
        urlOf({" M\u00fcnchen.example ", "a;b:c/d%\u00e9", " 1143 ", Encryption::StartTls}));
    EXPECT_EQ(account.user, "a;b:c/d%\u00e9");
    EXPECT_EQ(account.host, "xn--mnchen-3ya.example");
    EXPECT_EQ(account.port, 1143);
    EXPECT_FALSE(account.tls);
    EXPECT_EQ(readImapAddress(urlOf({"::1", "a", "993"})).host, "::1");
    for (const char* port : {"0", "65536", "-1", "99x"})
        EXPECT_EQ(messageOf([&] {
                      urlOf({"h", "a", port});
                  }),
                  "The port must be a number from 1 to 65535.");
    EXPECT_EQ(messageOf([] {
                  urlOf({"a b", "a", ""});
              }),
              "The name of the mail server is not valid.");
}

TEST(ServerDialog, guessesWhatTheUserHasNotEntered) {
    ServerDialog dialog(nullptr);
    dialog.show();
    const auto guessed = [&] {
        return (field(dialog, "server").text() + " " + field(dialog, "user").text() + " " +
                field(dialog, "port").text())
            .toStdString();
    };
    enter(dialog, "address", "ann@example.org");
    EXPECT_EQ(guessed(), "imap.example.org ann@example.org 993");
    enter(dialog, "server", "mail.example.org");
    enter(dialog, "address", "bob@example.net");
    dialog.findChild<QComboBox*>()->setCurrentIndex(1);
    EXPECT_EQ(guessed(), "mail.example.org bob@example.net 143");
    EXPECT_EQ(field(dialog, "password").echoMode(), QLineEdit::Password);
}

TEST(ServerDialog, saysWhyATestFailsAndCanStopIt) {
    ServerDialog dialog(nullptr);
    dialog.show();
    const std::uint16_t closed = freePort();
    enterAccount(dialog, closed, "secret");
    EXPECT_EQ(tested(dialog), "The mail server 127.0.0.1 cannot be reached at port " +
                                  std::to_string(closed) + ": Connection refused.");
    enter(dialog, "port", "993x");
    click(dialog, "OK");
    EXPECT_EQ(stateOf(dialog), "The port must be a number from 1 to 65535.");

    // A server that never answers.
    const auto [listener, port] = listenAnywhere();
    const Socket silent(listener);
    enter(dialog, "port", QString::number(port));
    click(dialog, "Test");
    EXPECT_FALSE(field(dialog, "port").isEnabled());
    click(dialog, "Stop the test");
    EXPECT_EQ(stateOf(dialog), "The test was stopped.");
    click(dialog, "OK");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.password(), "secret");
}

TEST(ServerWait, endsOnAllThreadsWhenTheUserCancels) {
    ServerWait wait("mail.x.org");
    EXPECT_TRUE(wait.goesOn(std::chrono::milliseconds(0)));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    inNext<QProgressDialog>([](QProgressDialog& box) {
        EXPECT_EQ(box.labelText(), "Waiting for mail.x.org...");
        box.cancel();
    });
    for (int calls = 0; wait.goesOn(std::chrono::seconds(1)); QThread::msleep(1))
        ASSERT_LT(++calls, 5000);
    EXPECT_FALSE(std::async(std::launch::async, [&] {
                     return wait.goesOn(std::chrono::milliseconds(0));
                 }).get());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

class ServerMailTest : public ::testing::Test {
 protected:
    Dovecot dovecot;
    MemoryKeyring keyring;
    ScriptedDialogs dialogs;
    ServerMail servers{keyring, dialogs};
    std::string url = "imap://jane@127.0.0.1:" + std::to_string(dovecot.port);

    void start() {
        dovecot.folder.write("mail/new/1600000001.x.h", "From: a@x.org\nTo: b@x.org\n\nHi\n");
        dovecot.start();
    }
    std::string opened(ServerMail& mail) { return mail.open(url, {})->folders()->next()->name(); }
    void expectPrompt(const QString& text, const QString& answer) {
        inNext<QInputDialog>([text, answer](QInputDialog& box) {
            EXPECT_TRUE(box.labelText().contains(text)) << box.labelText().toStdString();
            EXPECT_EQ(box.textEchoMode(), QLineEdit::Password);
            box.setTextValue(answer);
            answer.isEmpty() ? box.reject() : box.accept();
        });
    }
};

TEST_F(ServerMailTest, opensAnAccountAndRemembersIt) {
    start();
    MainWindowOffers offers;
    offers.choices = MailChoices(dovecot.folder.path() + "/window.ini");
    offers.addServer = [this] { return servers.add(); };
    offers.openServer = [this](const std::string& address, const MailStoreOptions& options) {
        return servers.open(address, options);
    };
    MainWindow window({}, {}, dialogs, offers);
    inNext<ServerDialog>([this](ServerDialog& dialog) {
        enterAccount(dialog, dovecot.port, "s3cret-word");
        EXPECT_EQ(tested(dialog), "Connected: 1 folder.");
        click(dialog, "OK");
    });
    for (QAction* action : window.menuBar()->actions().at(0)->menu()->actions())
        if (shownText(*action) == "Add a mail server...")
            action->trigger();
    EXPECT_EQ(window.session()->folders()->next()->name(), "jane@127.0.0.1");
    EXPECT_EQ(offers.choices.recent(), std::vector<MailChoice>{{url}});
    EXPECT_EQ(keyring.passwords[url], "s3cret-word");
    window.open({url, dovecot.mail()});
    const auto stores = window.session()->folders();
    EXPECT_EQ(stores->next()->name(), "mail");
    EXPECT_EQ(stores->next()->name(), "jane@127.0.0.1");
}

TEST_F(ServerMailTest, asksForAPasswordThatIsUnknownOrRefused) {
    start();
    keyring.isBroken = true;
    expectPrompt("No keyring.", "s3cret-word");
    EXPECT_EQ(opened(servers), "jane@127.0.0.1");
    EXPECT_EQ(opened(servers), "jane@127.0.0.1");
    ServerMail next(keyring, dialogs);
    expectPrompt("jane@127.0.0.1", "");
    EXPECT_THROW(opened(next), Error);
    keyring.isBroken = false;
    keyring.passwords[url] = "wrong";
    expectPrompt("refuses to let jane in", "s3cret-word");
    EXPECT_EQ(opened(next), "jane@127.0.0.1");
    EXPECT_EQ(keyring.passwords[url], "s3cret-word");
}

}  // namespace
}  // namespace pelk
