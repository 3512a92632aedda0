#include "platform/desktop/qt/window_placing.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include "platform/window_place.h"

namespace pelk {

namespace {

Rect fromQt(const QRect& rect) {
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

/// What the window system adds to the window, or a guess while it has not.
QMargins frameOf(const QWidget& window) {
    const QWindow* const native = window.windowHandle();
    const QMargins known = native == nullptr ? QMargins() : native->frameMargins();
    constexpr int kEdge = 4;
    return known.isNull() ? QMargins(kEdge, window.style()->pixelMetric(QStyle::PM_TitleBarHeight),
                                     kEdge, kEdge)
                          : known;
}

const QWindow* ownerOf(const QWidget& window) {
    const QWindow* const native = window.windowHandle();
    const QWindow* const owner = native == nullptr ? nullptr : native->transientParent();
    return owner != nullptr && owner->isVisible() ? owner : nullptr;
}

const QScreen& screenFor(const QWindow* owner, const std::optional<Rect>& wanted) {
    const QPoint middle =
        wanted ? QPoint(wanted->left + wanted->width / 2, wanted->top + wanted->height / 2)
               : QPoint();
    if (const QScreen* const there = wanted ? QGuiApplication::screenAt(middle) : nullptr)
        return *there;
    return owner != nullptr ? *owner->screen() : *QGuiApplication::primaryScreen();
}

bool isOwnedBy(const QWindow* window, const QWindow* owner) {
    while (window != nullptr && window != owner)
        window = window->transientParent();
    return window != nullptr;
}

}  // namespace

void placeWindow(QWidget& window, const std::optional<Rect>& wanted) {
    const bool wasShown = window.testAttribute(Qt::WA_Moved);
    const QWindow* const owner = ownerOf(window);
    const Rect now = fromQt(window.geometry());
    const QScreen& screen = screenFor(owner, wanted || !wasShown ? wanted : std::optional(now));
    const QRect space = screen.availableGeometry().marginsRemoved(frameOf(window));
    const Rect middle = centredOver(now, fromQt(owner != nullptr ? owner->geometry() : space));
    const Rect place = fittedInto(wanted ? *wanted : wasShown ? now : middle, fromQt(space));
    window.setMinimumSize(window.minimumSize().boundedTo(space.size()));
    window.setGeometry(place.left, place.top, place.width, place.height);
}

void ownByActiveWindow(QWidget& window) {
    QWindow* const active = QGuiApplication::focusWindow();
    window.winId();  // creates the native window
    if (active != nullptr && !isOwnedBy(active, window.windowHandle()))
        window.windowHandle()->setTransientParent(active);
}

Rect placeOf(const QWidget& window) {
    return fromQt(window.isMaximized() ? window.normalGeometry() : window.geometry());
}

}  // namespace pelk
