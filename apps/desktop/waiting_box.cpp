#include "apps/desktop/waiting_box.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

namespace pelk {
namespace {

/// In milliseconds.
constexpr int kMoment = 300;
constexpr int kBetweenLooks = 20;

/// A box that appears and goes at once would only flicker.
bool isDoneAtOnce(const std::function<bool()>& isDone) {
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < kMoment; QThread::msleep(kBetweenLooks)) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (isDone())
            return true;
    }
    return false;
}

}  // namespace

bool waitWithBox(const QString& text, const std::function<bool()>& isDone) {
    if (isDoneAtOnce(isDone))
        return true;
    QWidget* const modal = QApplication::activeModalWidget();
    QProgressDialog box(modal != nullptr ? modal : QApplication::activeWindow());
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    box.setLabel(label);
    box.setWindowTitle(QStringLiteral("Pelk"));
    box.setWindowModality(Qt::ApplicationModal);
    // Without an end it shows only that something goes on.
    box.setRange(0, 0);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &box, [&box, &isDone] {
        if (isDone())
            box.accept();
    });
    timer.start(kBetweenLooks);
    return box.exec() == QDialog::Accepted;
}

}  // namespace pelk
