#pragma once
// Calls a function again and again for a while, as often as the screen can show the result.

#include <windows.h>

#include <chrono>
#include <functional>

namespace pelk {

/// Whether the user wants moving things in windows.
bool isMotionWanted();

class FrameTimer {
 public:
    /// Uses a timer of the window, which passes its `WM_TIMER` with the id `kTimer` to `tick`.
    explicit FrameTimer(HWND window) : window_(window) {}

    static constexpr UINT_PTR kTimer = 1;

    /// See `DrawingArea::animate`.
    void start(double seconds, std::function<void(double share)> frame);
    void tick();

 private:
    void end();

    HWND window_;
    std::function<void(double share)> frame_;
    std::chrono::steady_clock::time_point begin_;
    double seconds_ = 0;
};

}  // namespace pelk
