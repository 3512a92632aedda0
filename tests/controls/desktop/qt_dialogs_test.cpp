// The real boxes of Qt: what they show, and what closing them answers.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTimer>

#include "platform/desktop/qt/dialogs.h"
#include "platform/desktop/qt/display.h"
#include "platform/desktop/qt/picture_output.h"
#include "platform/error.h"
#include "tests/support/temporary_folder.h"

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

struct Message {
    Buttons buttons;
    QStringList shown;
    /// Where none is pressed, the box is closed.
    QString pressed;
    Answer answer;
};

TEST(QtDialogs, MessagesShowWhatIsAskedAndReturnTheButton) {
    const std::vector<Message> messages = {
        {Buttons::Ok, {"OK"}, "", Answer::Ok},
        {Buttons::OkCancel, {"OK", "Cancel"}, "", Answer::Cancel},
        {Buttons::OkCancel, {"OK", "Cancel"}, "OK", Answer::Ok},
        {Buttons::YesNo, {"Yes", "No"}, "", Answer::No},
        {Buttons::YesNo, {"Yes", "No"}, "Yes", Answer::Yes},
    };
    for (const Message& message : messages) {
        whenShown<QMessageBox>([&message](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Pelk");
            EXPECT_EQ(box.text(), "5 < 6 & <b>Åsa</b>");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            QStringList shown;
            QAbstractButton* pressed = nullptr;
            for (QAbstractButton* button : box.buttons()) {
                shown << button->text().remove('&');
                if (shown.last() == message.pressed)
                    pressed = button;
            }
            EXPECT_EQ(shown, message.shown);
            pressed != nullptr ? pressed->click() : static_cast<void>(box.close());
        });
        EXPECT_EQ(QtDialogs().message("5 < 6 & <b>Åsa</b>", message.buttons), message.answer);
    }
}

TEST(QtDialogs, InputReturnsTheLineOrNothing) {
    QtDialogs dialogs;
    whenShown<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Rename");
        EXPECT_EQ(box.labelText(), "First <i>letters</i>:");
        EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        EXPECT_EQ(box.textValue(), "as");
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

TEST(QtDialogs, ConfirmShowsTheConsequenceAndPreparesToCancel) {
    for (const bool agreed : {false, true}) {
        whenShown<QMessageBox>([agreed](QMessageBox& box) {
            EXPECT_EQ(box.text(), "Delete <b>?\na: 1");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_TRUE(box.defaultButton() == box.button(QMessageBox::Cancel));
            box.button(agreed ? QMessageBox::Ok : QMessageBox::Cancel)->click();
        });
        EXPECT_EQ(QtDialogs().confirm("Delete <b>?", "a: 1"), agreed);
    }
}

TEST(QtDialogs, InputSelectsWhatTypingReplaces) {
    whenShown<QInputDialog>([](QInputDialog& box) {
        auto* const line = box.findChild<QLineEdit*>();
        EXPECT_EQ(line->selectedText(), "Åsa");
        line->insert("Eva");
        box.accept();
    });
    EXPECT_EQ(QtDialogs().input("Rename", "?", "Åsa (a@x)", 4), "Eva (a@x)");
}

TEST(QtDisplay, BusyPointerIsNotCountedAndRestsDuringBoxes) {
    QtDisplay display;
    display.setBusyPointer(true);
    display.setBusyPointer(true);
    whenShown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        box.close();
    });
    QtDialogs().message("?", Buttons::Ok);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    display.setBusyPointer(false);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

/// Types the path and presses Enter. What the dialog reads of folders in the background, of which
/// other programs may change some at the moment, does not matter then.
void chooseByName(QFileDialog& box, const QString& path) {
    box.findChild<QLineEdit*>("fileNameEdit")->setText(path);
    QMetaObject::invokeMethod(&box, "accept");
}

constexpr const char* kFilter = "Pelk Data Base files (*.db)|*.db|All files (*.*)|*.*";

TEST(QtDialogs, FilesAreChosenByTheKindsThatAreNamed) {
    const TemporaryFolder folder;
    const QString there = QString::fromStdString(folder.write("a.db", ""));
    QtDialogs dialogs;
    whenShown<QFileDialog>([&there](QFileDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Importing");
        EXPECT_EQ(box.nameFilters(), QStringList({"Pelk Data Base files (*.db)", "All files (*)"}));
        EXPECT_EQ(box.fileMode(), QFileDialog::ExistingFile);
        chooseByName(box, there);
    });
    EXPECT_EQ(dialogs.openFile("Importing", kFilter), there.toStdString());
    whenShown<QFileDialog>([&folder](QFileDialog& box) {
        EXPECT_FALSE(box.testOption(QFileDialog::DontConfirmOverwrite));
        chooseByName(box, QString::fromStdString(folder.path() + "/b"));
    });
    EXPECT_EQ(dialogs.saveFile("Exporting", kFilter), folder.path() + "/b.db");
    whenShown<QFileDialog>([](QFileDialog& box) { box.close(); });
    EXPECT_EQ(dialogs.saveFile("Exporting", kFilter), "");
}

/// Prints into a file instead, which may be in a folder that does not exist.
void printInto(QPrintDialog& box, const std::string& path) {
    box.printer()->setOutputFileName(QString::fromStdString(path));
    box.done(QDialog::Accepted);
}

TEST(QtPictures, ArePrintedOnOnePageUnlessTheUserCancels) {
    const TemporaryFolder folder;
    CanvasSize page;
    const auto print = [&page](const std::string& path) {
        whenShown<QPrintDialog>(
            [&path](QPrintDialog& box) { path.empty() ? box.reject() : printInto(box, path); });
        return QtPictureOutput().print("Title", [&page](Canvas& canvas, CanvasSize size) {
            page = size;
            canvas.disc({0, 0}, 5, {});
        });
    };
    EXPECT_FALSE(print(""));
    EXPECT_EQ(page.width, 0);
    EXPECT_TRUE(print(folder.path() + "/a.pdf"));
    EXPECT_GT(page.width, page.height);
    EXPECT_NEAR(page.width, 800, 60) << "in points";
    QFile file(QString::fromStdString(folder.path() + "/a.pdf"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly) && file.readAll().startsWith("%PDF"));
    try {
        print(folder.path() + "/missing/a.pdf");
        ADD_FAILURE() << "the file cannot be written";
    } catch (const Error& error) {
        EXPECT_EQ(std::string(error.what()),
                  "The picture could not be printed to " + folder.path() + "/missing/a.pdf.");
    }
}

TEST(QtDisplay, CopiesTextAsItIs) {
    QtDisplay().copyToClipboard("<b>Åsa</b>\n& co");
    const QMimeData& copied = *QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied.text(), "<b>Åsa</b>\n& co");
    EXPECT_FALSE(copied.hasHtml());
}

}  // namespace
}  // namespace pelk
