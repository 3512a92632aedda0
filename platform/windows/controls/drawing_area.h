#pragma once
// The drawing area, a window class of its own, drawn with GDI+.

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/dialogs.h"
#include "platform/windows/controls/area_tip.h"
#include "platform/windows/controls/frame_timer.h"
#include "platform/windows/controls/native_control.h"
#include "platform/windows/controls/picture_buffer.h"
#include "platform/windows/controls/picture_font.h"
#include "platform/windows/controls/window_class.h"

namespace pelk {

class Win32DrawingArea : private WindowClassUse<Win32DrawingArea>,
                         public Win32Control<DrawingArea> {
 public:
    /// `dialogs` shows the handlers' exceptions.
    Win32DrawingArea(const ControlPlace& place, Dialogs& dialogs);

    void redraw() override;
    void redrawMoved(double scale, CanvasPoint corner) override;
    CanvasSize size() const override;
    double widthOf(std::string_view text, double fontSize) const override;
    Color textColor() const override;
    Color backgroundColor() const override;
    void setDescription(const std::string& description) override;
    void showTip(const std::string& text) override;
    void setHandPointer(bool hand) override;
    void animate(double seconds, std::function<void(double share)> frame) override;
    void forgetHandlers() override { SetWindowLongPtrW(handle(), GWLP_USERDATA, 0); }

 private:
    friend class WindowClass<Win32DrawingArea>;
    /// The timer of a movement that may rest.
    static constexpr UINT_PTR kRestTimer = FrameTimer::kTimer + 1;
    static constexpr const wchar_t* kClassName = L"Pelk.DrawingArea";
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handleMessage(UINT message, WPARAM wparam, LPARAM lparam);
    std::optional<LRESULT> handlePainting(UINT message, WPARAM wparam);
    std::optional<LRESULT> handlePointer(UINT message, WPARAM wparam, LPARAM lparam);
    std::optional<LRESULT> handleKeys(UINT message, WPARAM wparam);

    void paintWindow();
    void makePicture();
    void showPicture(HDC dc) const;
    void paintFocus(HDC dc) const;

    void pressed();
    void moved(POINT to);
    void left();
    void turned(double notches);
    bool choosePointer(WPARAM under, LPARAM where) const;
    void lookChanged();
    void keyPressed(DrawingKey key) const;
    CanvasPoint pointer() const;
    void report(const std::function<void(CanvasPoint)>& handler) const;

    Dialogs& dialogs_;
    PictureFont font_;
    /// The pixels of a unit.
    double scale_;
    /// What is shown; none when it must be drawn again.
    std::unique_ptr<PictureBuffer> picture_;
    std::chrono::steady_clock::duration paintingTime_{};
    /// Where a movement shows the picture until it rests.
    std::optional<RECT> moved_;
    FrameTimer frames_;
    AreaTip tip_;
    /// Where the pointer was last, in pixels.
    POINT pointer_ = {};
    bool isPressed_ = false;
    bool isPointerOver_ = false;
    bool hasHand_ = false;
};

}  // namespace pelk
