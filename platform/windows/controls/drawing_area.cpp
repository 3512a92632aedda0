#include "platform/windows/controls/drawing_area.h"

// Requires the include above.
#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/guard.h"
#include "platform/movement.h"
#include "platform/windows/controls/accessible_names.h"
#include "platform/windows/controls/colors.h"
#include "platform/windows/controls/gdiplus_canvas.h"
#include "platform/windows/controls/pointer.h"
#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

/// A text of size 12 is as large as the user's font.
double unitOf(HFONT font) {
    LOGFONTW description = {};
    GetObjectW(font, sizeof description, &description);
    constexpr double kUnits = 12;
    return std::max(1.0, std::abs(static_cast<double>(description.lfHeight))) / kUnits;
}

SIZE clientSizeOf(HWND window) {
    RECT space = {};
    GetClientRect(window, &space);
    return {space.right, space.bottom};
}

std::optional<DrawingKey> keyOf(WPARAM key) {
    switch (key) {
        case VK_LEFT:
            return DrawingKey::Left;
        case VK_RIGHT:
            return DrawingKey::Right;
        case VK_UP:
            return DrawingKey::Up;
        case VK_DOWN:
            return DrawingKey::Down;
        case VK_HOME:
            return DrawingKey::Home;
        default:
            return std::nullopt;
    }
}

}  // namespace

Win32DrawingArea::Win32DrawingArea(const ControlPlace& place, Dialogs& dialogs)
    : Win32Control(place, {kClassName, WS_TABSTOP | WS_BORDER}),
      dialogs_(dialogs),
      font_(look_.font()),
      scale_(unitOf(look_.font())),
      frames_(handle()),
      tip_(handle()) {
    SetWindowLongPtrW(handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    setDescription("");
}

void Win32DrawingArea::redraw() {
    KillTimer(handle(), kRestTimer);
    moved_.reset();
    picture_.reset();
    InvalidateRect(handle(), nullptr, FALSE);
}

void Win32DrawingArea::redrawMoved(double scale, CanvasPoint corner) {
    const bool isSlow = paintingTime_ >= std::chrono::milliseconds(kFrameMilliseconds);
    if (!isSlow || picture_ == nullptr ||
        SetTimer(handle(), kRestTimer, kRestMilliseconds, nullptr) == 0)
        return redraw();
    const auto pixels = [](double place) { return static_cast<LONG>(std::lround(place)); };
    const double left = corner.x * scale_;
    const double top = corner.y * scale_;
    const SIZE size = picture_->size();
    moved_ = {pixels(left), pixels(top), pixels(left + scale * static_cast<double>(size.cx)),
              pixels(top + scale * static_cast<double>(size.cy))};
    InvalidateRect(handle(), nullptr, FALSE);
}

CanvasSize Win32DrawingArea::size() const {
    const SIZE pixels = clientSizeOf(handle());
    return {static_cast<double>(pixels.cx) / scale_, static_cast<double>(pixels.cy) / scale_};
}

double Win32DrawingArea::widthOf(std::string_view text, double fontSize) const {
    return font_.widthOf(text) * fontSize;
}

Color Win32DrawingArea::textColor() const {
    return fromNative(GetSysColor(COLOR_WINDOWTEXT));
}

Color Win32DrawingArea::backgroundColor() const {
    return fromNative(GetSysColor(COLOR_WINDOW));
}

void Win32DrawingArea::setDescription(const std::string& description) {
    describePicture(handle(), PictureKind::Graphic, toWide(description));
}

void Win32DrawingArea::showTip(const std::string& text) {
    tip_.show(toWide(text));
}

void Win32DrawingArea::setHandPointer(bool hand) {
    if (std::exchange(hasHand_, hand) != hand)
        refreshPointer(handle());
}

void Win32DrawingArea::animate(double seconds, std::function<void(double share)> frame) {
    frames_.start(seconds, std::move(frame));
}

LRESULT CALLBACK Win32DrawingArea::procedure(HWND window, UINT message, WPARAM wparam,
                                             LPARAM lparam) {
    auto* const self =
        reinterpret_cast<Win32DrawingArea*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self == nullptr ? DefWindowProcW(window, message, wparam, lparam)
                           : self->handleMessage(message, wparam, lparam);
}

LRESULT Win32DrawingArea::handleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    std::optional<LRESULT> result = handlePainting(message, wparam);
    if (!result)
        result = handlePointer(message, wparam, lparam);
    if (!result)
        result = handleKeys(message, wparam);
    if (!result && message == WM_TIMER && wparam == FrameTimer::kTimer) {
        guarded(dialogs_, [this] { frames_.tick(); });
        result = 0;
    }
    if (!result && message == WM_TIMER && wparam == kRestTimer) {
        redraw();
        result = 0;
    }
    return result ? *result : DefWindowProcW(handle(), message, wparam, lparam);
}

std::optional<LRESULT> Win32DrawingArea::handlePainting(UINT message, WPARAM wparam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;  // painting covers it all
        case WM_PAINT:
            paintWindow();
            return 0;
        case WM_PRINTCLIENT:
            makePicture();
            showPicture(reinterpret_cast<HDC>(wparam));
            return 0;
        case WM_SIZE:
        case WM_SYSCOLORCHANGE:
            lookChanged();
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            InvalidateRect(handle(), nullptr, FALSE);
            return 0;
        default:
            return std::nullopt;
    }
}

void Win32DrawingArea::lookChanged() {
    redraw();
    if (const auto handler = onResize)
        guarded(dialogs_, handler);
}

/// A message about a failure appears before Windows expects the painting to end.
void Win32DrawingArea::paintWindow() {
    makePicture();
    PAINTSTRUCT painting = {};
    const HDC dc = BeginPaint(handle(), &painting);
    showPicture(dc);
    paintFocus(dc);
    EndPaint(handle(), &painting);
}

void Win32DrawingArea::showPicture(HDC dc) const {
    if (picture_ == nullptr)
        return;
    RECT whole = {};
    GetClientRect(handle(), &whole);
    const RECT place = moved_.value_or(whole);
    picture_->copyTo(dc, place);
    const int state = SaveDC(dc);
    ExcludeClipRect(dc, place.left, place.top, place.right, place.bottom);
    FillRect(dc, &whole, GetSysColorBrush(COLOR_WINDOW));
    RestoreDC(dc, state);
}

/// Keeps the picture, so that a drawing that fails is not tried again when its message is closed.
void Win32DrawingArea::makePicture() {
    const SIZE pixels = clientSizeOf(handle());
    if (picture_ != nullptr || pixels.cx <= 0 || pixels.cy <= 0)
        return;
    const auto start = std::chrono::steady_clock::now();
    guarded(dialogs_, [&] {
        picture_ = std::make_unique<PictureBuffer>(pixels);
        Gdiplus::Graphics target(&picture_->image());
        GdiplusCanvas canvas(target, font_, scale_);
        canvas.fill(backgroundColor());
        if (const auto handler = onPaint)
            handler(canvas);
    });
    paintingTime_ = std::chrono::steady_clock::now() - start;
}

void Win32DrawingArea::paintFocus(HDC dc) const {
    const LRESULT hidden = SendMessageW(handle(), WM_QUERYUISTATE, 0, 0);
    if (GetFocus() != handle() || (hidden & UISF_HIDEFOCUS) != 0)
        return;
    RECT frame = {};
    GetClientRect(handle(), &frame);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(COLOR_WINDOW));
    DrawFocusRect(dc, &frame);
}

std::optional<LRESULT> Win32DrawingArea::handlePointer(UINT message, WPARAM wparam, LPARAM lparam) {
    POINT at = {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
    switch (message) {
        case WM_LBUTTONDOWN:
            pointer_ = at;
            pressed();
            return 0;
        case WM_LBUTTONDBLCLK:
            pointer_ = at;
            report(onDoubleClick);
            return 0;
        case WM_MOUSEMOVE:
            moved(at);
            return 0;
        case WM_LBUTTONUP:
            pointer_ = at;
            ReleaseCapture();
            return 0;
        // Another window can also take the pointer away.
        case WM_CAPTURECHANGED:
            if (std::exchange(isPressed_, false))
                report(onRelease);
            return 0;
        case WM_MOUSELEAVE:
            left();
            return 0;
        case WM_CANCELMODE:  // the window is about to be hidden
            left();
            return std::nullopt;
        case WM_MOUSEWHEEL:
            ScreenToClient(handle(), &at);
            pointer_ = at;
            turned(static_cast<double>(GET_WHEEL_DELTA_WPARAM(wparam)) / WHEEL_DELTA);
            return 0;
        case WM_SETCURSOR:
            return choosePointer(wparam, lparam) ? std::optional<LRESULT>(TRUE) : std::nullopt;
        default:
            return std::nullopt;
    }
}

CanvasPoint Win32DrawingArea::pointer() const {
    return {static_cast<double>(pointer_.x) / scale_, static_cast<double>(pointer_.y) / scale_};
}

void Win32DrawingArea::report(const std::function<void(CanvasPoint)>& handler) const {
    if (handler)
        guarded(dialogs_, [handler, at = pointer()] { handler(at); });
}

void Win32DrawingArea::pressed() {
    SetFocus(handle());
    SetCapture(handle());
    isPressed_ = true;
    report(onPress);
}

/// Windows also reports a pointer that rests.
void Win32DrawingArea::moved(POINT to) {
    const POINT before = std::exchange(pointer_, to);
    if (isPointerOver_ && before.x == to.x && before.y == to.y)
        return;
    if (!isPointerOver_) {
        TRACKMOUSEEVENT leave = {sizeof leave, TME_LEAVE, handle(), 0};
        isPointerOver_ = TrackMouseEvent(&leave) != FALSE;
    }
    report(onMove);
}

void Win32DrawingArea::left() {
    isPointerOver_ = false;
    tip_.show({});
    if (const auto handler = onLeave)
        guarded(dialogs_, handler);
}

void Win32DrawingArea::turned(double notches) {
    if (const auto handler = onWheel)
        guarded(dialogs_, [&] { handler(pointer(), notches); });
}

/// The window decides first, because it may be busy.
bool Win32DrawingArea::choosePointer(WPARAM under, LPARAM where) const {
    if (!hasHand_ || LOWORD(where) != HTCLIENT ||
        SendMessageW(GetParent(handle()), WM_SETCURSOR, under, where) != 0)
        return false;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    return true;
}

std::optional<LRESULT> Win32DrawingArea::handleKeys(UINT message, WPARAM wparam) {
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_KEYDOWN:
            if (const auto key = keyOf(wparam))
                keyPressed(*key);
            return 0;
        case WM_CHAR:  // whatever key the layout has them on
            if (wparam == '+' || wparam == '-')
                keyPressed(wparam == '+' ? DrawingKey::Plus : DrawingKey::Minus);
            return 0;
        default:
            return std::nullopt;
    }
}

void Win32DrawingArea::keyPressed(DrawingKey key) const {
    if (const auto handler = onKey)
        guarded(dialogs_, [&] { handler(key); });
}

}  // namespace pelk
