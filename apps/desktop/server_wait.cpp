#include "apps/desktop/server_wait.h"

#include <QApplication>
#include <QLabel>
#include <QThread>

namespace pelk {
namespace {

constexpr std::chrono::milliseconds kMoment{700};
/// Longer than the time between two calls.
constexpr std::chrono::milliseconds kAfterWait{300};

}  // namespace

bool ServerWait::goesOn(std::chrono::milliseconds waited) {
    if (!isCancelled_ && waited >= kMoment && QThread::currentThread() == qApp->thread()) {
        showBox();
        QCoreApplication::processEvents();
        isCancelled_ = box_->dialog.wasCanceled();
        if (isCancelled_)
            box_->dialog.hide();
    }
    return !isCancelled_;
}

void ServerWait::showBox() {
    if (!box_) {
        box_ = std::make_unique<Box>();
        auto* const label = new QLabel;
        label->setTextFormat(Qt::PlainText);
        label->setText(QString::fromStdString("Waiting for " + host_ + "..."));
        box_->dialog.setLabel(label);
        box_->dialog.setWindowTitle(QStringLiteral("Pelk"));
        box_->dialog.setWindowModality(Qt::ApplicationModal);
        box_->dialog.setRange(0, 0);
        box_->closing.setSingleShot(true);
        QObject::connect(&box_->closing, &QTimer::timeout, &box_->dialog, &QWidget::hide);
    }
    box_->dialog.show();
    box_->closing.start(kAfterWait);
}

}  // namespace pelk
