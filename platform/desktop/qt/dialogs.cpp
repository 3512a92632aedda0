#include "platform/desktop/qt/dialogs.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include "platform/desktop/qt/box_owner.h"
#include "platform/desktop/qt/file_dialog.h"
#include "platform/desktop/qt/images.h"

namespace pelk {

namespace {

constexpr const char* kProgramName = "Pelk";

/// A contact's name with its addresses should be seen whole while it is edited.
constexpr int kInputLetters = 60;

QMessageBox::StandardButtons standardButtons(Buttons buttons) {
    switch (buttons) {
        case Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton closingButton(Buttons buttons) {
    switch (buttons) {
        case Buttons::OkCancel:
            return QMessageBox::Cancel;
        case Buttons::YesNo:
            return QMessageBox::No;
        case Buttons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

Answer answerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        default:
            return Answer::Ok;
    }
}

/// Shows a message box. Without a default button, Qt chooses one.
Answer ask(const std::string& text, Buttons buttons, QMessageBox::StandardButton byDefault) {
    const PointerForBox pointer;
    QMessageBox box(QMessageBox::NoIcon, kProgramName, QString::fromStdString(text),
                    standardButtons(buttons), boxOwner());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(byDefault);
    box.setEscapeButton(closingButton(buttons));
    box.setWindowIcon(programIcon());
    return answerOf(box.exec());
}

}  // namespace

Answer QtDialogs::message(const std::string& text, Buttons buttons) {
    return ask(text, buttons, QMessageBox::NoButton);
}

bool QtDialogs::confirm(const std::string& question, const std::string& consequence) {
    return ask(question + "\n" + consequence, Buttons::OkCancel, QMessageBox::Cancel) == Answer::Ok;
}

std::string QtDialogs::input(const std::string& title, const std::string& prompt,
                             const std::string& initial, std::size_t selected) {
    const PointerForBox pointer;
    QInputDialog box(boxOwner());
    box.setWindowTitle(title.empty() ? kProgramName : QString::fromStdString(title));
    box.setLabelText(QString::fromStdString(prompt));
    box.setTextValue(QString::fromStdString(initial));
    box.setWindowIcon(programIcon());
    for (QLabel* label : box.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    box.resize(kInputLetters * box.fontMetrics().averageCharWidth(), box.sizeHint().height());
    // The box selects all of the text when it opens.
    const auto letters = QString::fromStdString(initial.substr(0, selected)).size();
    QTimer::singleShot(0, &box, [line = box.findChild<QLineEdit*>(), letters] {
        line->setSelection(0, static_cast<int>(letters));
    });
    return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

std::string QtDialogs::openFile(const std::string& title, const std::string& filter) {
    const PointerForBox pointer;
    return chooseFile(boxOwner(), QFileDialog::AcceptOpen, title, filter);
}

std::string QtDialogs::saveFile(const std::string& title, const std::string& filter) {
    const PointerForBox pointer;
    return chooseFile(boxOwner(), QFileDialog::AcceptSave, title, filter);
}

}  // namespace pelk
