#include "platform/desktop/qt/simple_controls.h"

#include <QPainter>
#include <QStyleOptionProgressBar>
#include <algorithm>

#include "platform/desktop/qt/images.h"
#include "platform/guard.h"
#include "platform/spoken_text.h"

namespace pelk {

TextWidget::TextWidget(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void TextWidget::align() {
    const bool oneLine = heightForWidth(width()) < 2 * fontMetrics().height();
    setAlignment(Qt::AlignLeft | (oneLine ? Qt::AlignVCenter : Qt::AlignTop));
}

void TextWidget::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    align();
}

void QtLabel::setText(const std::string& text) {
    widget_.setText(QString::fromStdString(text));
    widget_.align();
}

void PictureWidget::paintEvent(QPaintEvent*) {
    const int side = std::min(width(), height());
    QPainter painter(this);
    treeIcon(image_).paint(&painter, (width() - side) / 2, (height() - side) / 2, side, side,
                           Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

QtPicture::QtPicture(QWidget& parent, const TwipScale& scale, TreeImage image)
    : QtControl(parent, scale) {
    widget_.setImage(image);
    // Tells screen readers that it is a picture, and of what.
    widget_.setPixmap(treeIcon(image).pixmap(1));
    widget_.setAccessibleName(QString::fromStdString(describeImage(image)));
}

QtButton::QtButton(QWidget& parent, const TwipScale& scale, const std::string& text,
                   Dialogs& dialogs)
    : QtControl(parent, scale) {
    widget_.setText(QString::fromStdString(text));
    widget_.setAutoDefault(true);  // Enter presses the button that has the focus
    QObject::connect(&widget_, &QPushButton::clicked, [this, &dialogs] {
        if (const auto handler = onClick)
            guarded(dialogs, handler);
    });
}

QtOptionButton::QtOptionButton(QWidget& parent, const TwipScale& scale, const std::string& text,
                               QButtonGroup& group, Dialogs& dialogs)
    : QtControl(parent, scale) {
    widget_.setText(QString::fromStdString(text));
    group.addButton(&widget_);
    QObject::connect(&widget_, &QRadioButton::clicked, [this, &dialogs] {
        if (const auto handler = onClick)
            guarded(dialogs, handler);
    });
}

void QtOptionButton::setChecked(bool checked) {
    // An exclusive group does not uncheck its last checked button.
    widget_.group()->setExclusive(checked);
    widget_.setChecked(checked);
    widget_.group()->setExclusive(true);
}

void BarWidget::initStyleOption(QStyleOptionProgressBar* option) const {
    QProgressBar::initStyleOption(option);
    if (option->minimum == option->maximum)
        --option->minimum;
}

QtProgressBar::QtProgressBar(QWidget& parent, const TwipScale& scale) : QtControl(parent, scale) {
    widget_.setTextVisible(false);
    setRange(0, 100);
}

void QtProgressBar::setRange(int minimum, int maximum) {
    const int value = widget_.value();
    widget_.setRange(minimum, maximum);
    setValue(value);
}

void QtProgressBar::setValue(int value) {
    widget_.setValue(std::clamp(value, widget_.minimum(), widget_.maximum()));
}

}  // namespace pelk
