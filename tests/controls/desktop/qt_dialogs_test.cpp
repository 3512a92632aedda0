// The real boxes of Qt: what they show, and what closing them answers.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include "platform/desktop/qt/dialogs.h"

namespace pelk {

namespace {

/// Runs `act` on the modal box as soon as one is there.
template <class Box>
void whenShown(std::function<void(Box&)> act) {
    QTimer::singleShot(5, [act] {
        if (auto* box = qobject_cast<Box*>(QApplication::activeModalWidget()))
            act(*box);
        else
            whenShown<Box>(act);
    });
}

struct Shown {
    QString title;
    QString text;
    QStringList buttons;
    Answer answer;
};

/// Shows a message and presses the button that bears the text; closes the box when none is named.
Shown messageAnswered(const std::string& text, Buttons buttons, const QString& press = {}) {
    QtDialogs dialogs;
    Shown shown;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        shown.title = box.windowTitle();
        shown.text = box.findChild<QLabel*>("qt_msgbox_label")->text();
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        QAbstractButton* pressed = nullptr;
        for (QAbstractButton* button : box.buttons()) {
            shown.buttons << button->text().remove('&');
            if (shown.buttons.last() == press)
                pressed = button;
        }
        if (pressed != nullptr)
            pressed->click();
        else
            box.close();
    });
    shown.answer = dialogs.message(text, buttons);
    return shown;
}

TEST(QtDialogs, MessagesShowWhatIsAskedAndReturnTheButton) {
    const Shown ok = messageAnswered("5 < 6 & <b>Åsa</b>", Buttons::Ok);
    EXPECT_EQ(ok.title, "Pelk");
    EXPECT_EQ(ok.text, "5 < 6 & <b>Åsa</b>");
    EXPECT_EQ(ok.buttons, QStringList("OK"));
    EXPECT_EQ(ok.answer, Answer::Ok);

    const Shown cancel = messageAnswered("?", Buttons::OkCancel);
    EXPECT_EQ(cancel.buttons, QStringList({"OK", "Cancel"}));
    EXPECT_EQ(cancel.answer, Answer::Cancel);
    EXPECT_EQ(messageAnswered("?", Buttons::OkCancel, "OK").answer, Answer::Ok);
    EXPECT_EQ(messageAnswered("?", Buttons::OkCancel, "Cancel").answer, Answer::Cancel);

    const Shown no = messageAnswered("?", Buttons::YesNo);
    EXPECT_EQ(no.buttons, QStringList({"Yes", "No"}));
    EXPECT_EQ(no.answer, Answer::No);
    EXPECT_EQ(messageAnswered("?", Buttons::YesNo, "Yes").answer, Answer::Yes);
    EXPECT_EQ(messageAnswered("?", Buttons::YesNo, "No").answer, Answer::No);
}

TEST(QtDialogs, InputReturnsTheLineOrNothing) {
    QtDialogs dialogs;
    whenShown<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Rename");
        EXPECT_EQ(box.findChild<QLabel*>()->text(), "First <i>letters</i>:");
        EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        EXPECT_EQ(box.findChild<QLineEdit*>()->text(), "as");
        box.findChild<QLineEdit*>()->setText("Åsa");
        box.accept();
    });
    EXPECT_EQ(dialogs.input("Rename", "First <i>letters</i>:", "as"), "Åsa");
    whenShown<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Pelk") << "the default title";
        box.close();
    });
    EXPECT_EQ(dialogs.input("", "?", "as"), "");
}

TEST(QtDialogs, BusyPointerIsNotCountedAndRestsDuringBoxes) {
    QtDialogs dialogs;
    dialogs.setBusyPointer(true);
    dialogs.setBusyPointer(true);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    whenShown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        box.close();
    });
    dialogs.message("?", Buttons::Ok);
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    dialogs.setBusyPointer(false);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    dialogs.setBusyPointer(false);
}

}  // namespace

}  // namespace pelk
