#include "platform/desktop/qt/drawing_area.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <optional>
#include <utility>

#include "platform/desktop/qt/colors.h"
#include "platform/desktop/qt/plain_tool_tip.h"
#include "platform/guard.h"
#include "platform/movement.h"

namespace pelk {
namespace {

/// The size of a text that is as large as the user's others.
constexpr double kUsualFontSize = 12;
constexpr double kNotch = QWheelEvent::DefaultDeltasPerStep;
constexpr int kFocusWidth = 2;

QAccessibleInterface* areaForScreenReaders(const QString&, QObject* object) {
    auto* const area = dynamic_cast<DrawingWidget*>(object);
    return area == nullptr ? nullptr : new QAccessibleWidget(area, QAccessible::Graphic);
}

std::optional<DrawingKey> keyOf(const QKeyEvent& event) {
    // On most keyboards, "+" needs Shift.
    if ((event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0)
        return std::nullopt;
    switch (event.key()) {
        case Qt::Key_Left:
            return DrawingKey::Left;
        case Qt::Key_Right:
            return DrawingKey::Right;
        case Qt::Key_Up:
            return DrawingKey::Up;
        case Qt::Key_Down:
            return DrawingKey::Down;
        case Qt::Key_Plus:
            return DrawingKey::Plus;
        case Qt::Key_Minus:
            return DrawingKey::Minus;
        case Qt::Key_Home:
            return DrawingKey::Home;
        default:
            return std::nullopt;
    }
}

bool isByKey(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

}  // namespace

DrawingWidget::DrawingWidget(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // The picture covers the whole widget.
    setAttribute(Qt::WA_OpaquePaintEvent);
    QAccessible::installFactory(areaForScreenReaders);
    rest_.setSingleShot(true);
    rest_.setInterval(kRestMilliseconds);
    connect(&rest_, &QTimer::timeout, this, [this] { redraw(); });
}

void DrawingWidget::report(DrawingArea& area, Dialogs& dialogs) {
    area_ = &area;
    dialogs_ = &dialogs;
}

double DrawingWidget::unit() const {
    return QFontInfo(font()).pixelSize() / kUsualFontSize;
}

CanvasPoint DrawingWidget::pointOf(const QPointF& pixels) const {
    return {pixels.x() / unit(), pixels.y() / unit()};
}

/// The handler may replace itself while it runs.
template <class... Values>
void DrawingWidget::tell(const std::function<void(Values...)>& handler, const Values&... values) {
    if (const auto kept = handler)
        guarded(*dialogs_, [&] { kept(values...); });
}

void DrawingWidget::showTip(const std::string& text) {
    if (text.empty())
        QToolTip::hideText();
    else
        QToolTip::showText(mapToGlobal(pointer_).toPoint(),
                           plainToolTip(QString::fromStdString(text)), this);
}

void DrawingWidget::redraw() {
    rest_.stop();
    moved_ = {};
    isOutdated_ = true;
    update();
}

void DrawingWidget::redrawMoved(double scale, CanvasPoint corner) {
    if (milliseconds_ < kFrameMilliseconds)
        return redraw();
    moved_ = QTransform(scale, 0, 0, scale, corner.x * unit(), corner.y * unit());
    rest_.start();
    update();
}

void DrawingWidget::paintEvent(QPaintEvent*) {
    const QSize pixels = size() * devicePixelRatioF();
    if (std::exchange(isOutdated_, false) || picture_.size() != pixels)
        paintPicture();
    QPainter painter(this);
    showPicture(painter);
    if (showsFocus_)
        drawFocus(painter);
}

/// Keeps the picture, so that a window in front of it that goes away does not paint it again.
void DrawingWidget::paintPicture() {
    QElapsedTimer since;
    since.start();
    const double ratio = devicePixelRatioF();
    picture_ = QImage(size() * ratio, QImage::Format_RGB32);
    moved_ = {};
    picture_.fill(palette().color(QPalette::Window));
    if (picture_.isNull() || !area_->onPaint)
        return;
    try {
        ImageCanvas canvas(picture_, unit() * ratio, &labels_);
        area_->onPaint(canvas);
    } catch (...) {
        showFault(std::current_exception());
    }
    picture_.setDevicePixelRatio(ratio);
    milliseconds_ = since.elapsed();
}

void DrawingWidget::showPicture(QPainter& painter) const {
    if (picture_.isNull() || !moved_.isIdentity())
        painter.fillRect(rect(), palette().window());
    painter.setTransform(moved_);
    painter.drawImage(0, 0, picture_);
    painter.resetTransform();
}

/// Nothing can be shown during a painting, and a box would cause another one.
void DrawingWidget::showFault(const std::exception_ptr& fault) {
    QMetaObject::invokeMethod(
        this, [this, fault] { guarded(*dialogs_, [&fault] { std::rethrow_exception(fault); }); },
        Qt::QueuedConnection);
}

void DrawingWidget::drawFocus(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(
        QPen(palette().highlight(), kFocusWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    const int inset = kFocusWidth / 2;
    painter.drawRect(rect().adjusted(inset, inset, -inset, -inset));
}

void DrawingWidget::resizeEvent(QResizeEvent*) {
    tell(area_->onResize);
}

void DrawingWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const QEvent::Type type = event->type();
    if (area_ != nullptr && (type == QEvent::PaletteChange || type == QEvent::FontChange)) {
        redraw();
        tell(area_->onResize);
    }
}

void DrawingWidget::mousePressEvent(QMouseEvent* event) {
    pointer_ = event->position();
    if (std::exchange(showsFocus_, false))
        update();
    if (event->button() != Qt::LeftButton)
        return;
    pressed_ = true;
    tell(area_->onPress, pointOf(pointer_));
}

void DrawingWidget::mouseMoveEvent(QMouseEvent* event) {
    pointer_ = event->position();
    // A window that opened meanwhile may have got the release.
    if ((event->buttons() & Qt::LeftButton) == 0)
        tellRelease(pointer_);
    tell(area_->onMove, pointOf(pointer_));
}

void DrawingWidget::mouseReleaseEvent(QMouseEvent* event) {
    pointer_ = event->position();
    if (event->button() == Qt::LeftButton)
        tellRelease(pointer_);
}

void DrawingWidget::tellRelease(const QPointF& place) {
    if (std::exchange(pressed_, false))
        tell(area_->onRelease, pointOf(place));
}

void DrawingWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    pointer_ = event->position();
    if (event->button() == Qt::LeftButton)
        tell(area_->onDoubleClick, pointOf(pointer_));
}

void DrawingWidget::leaveEvent(QEvent*) {
    tell(area_->onLeave);
}

void DrawingWidget::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / kNotch;
    event->setAccepted(notches != 0);
    if (notches != 0)
        tell(area_->onWheel, pointOf(event->position()), notches);
}

void DrawingWidget::keyPressEvent(QKeyEvent* event) {
    const std::optional<DrawingKey> key = keyOf(*event);
    if (key && area_->onKey)
        tell(area_->onKey, *key);
    else
        QWidget::keyPressEvent(event);
}

void DrawingWidget::focusInEvent(QFocusEvent* event) {
    showsFocus_ = isByKey(event->reason());
    QWidget::focusInEvent(event);
}

void DrawingWidget::focusOutEvent(QFocusEvent* event) {
    showsFocus_ = false;
    QWidget::focusOutEvent(event);
}

QtDrawingArea::QtDrawingArea(QWidget& parent, const TwipScale& scale, Dialogs& dialogs)
    : QtControl(parent, scale), dialogs_(dialogs) {
    widget_.report(*this, dialogs);
    frames_.setTimerType(Qt::PreciseTimer);
    frames_.setInterval(kFrameMilliseconds);
    QObject::connect(&frames_, &QTimer::timeout, [this] { showFrame(); });
}

CanvasSize QtDrawingArea::size() const {
    return {widget_.width() / widget_.unit(), widget_.height() / widget_.unit()};
}

double QtDrawingArea::widthOf(std::string_view text, double fontSize) const {
    return textWidth_.widthOf(text) * fontSize;
}

Color QtDrawingArea::textColor() const {
    return fromQt(widget_.palette().color(QPalette::WindowText));
}

Color QtDrawingArea::backgroundColor() const {
    return fromQt(widget_.palette().color(QPalette::Window));
}

void QtDrawingArea::setDescription(const std::string& description) {
    widget_.setAccessibleDescription(QString::fromStdString(description));
}

void QtDrawingArea::setHandPointer(bool hand) {
    hand ? widget_.setCursor(Qt::PointingHandCursor) : widget_.unsetCursor();
}

void QtDrawingArea::animate(double seconds, std::function<void(double share)> frame) {
    frame_ = std::move(frame);
    seconds_ = wantsMotion() ? seconds : 0;
    since_.start();
    if (seconds_ > 0)
        frames_.start();
    else
        showFrame();
}

/// Styles follow the desktop's setting for animations.
bool QtDrawingArea::wantsMotion() const {
    return widget_.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget_) > 0;
}

/// The function may start another animation.
void QtDrawingArea::showFrame() {
    const double passed = static_cast<double>(since_.nsecsElapsed()) / 1e9;
    const double share = seconds_ > 0 ? std::min(1.0, passed / seconds_) : 1;
    if (share == 1)
        frames_.stop();
    const auto frame = share == 1 ? std::exchange(frame_, nullptr) : frame_;
    guarded(dialogs_, [&] { frame(share); });
}

}  // namespace pelk
