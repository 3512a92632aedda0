#include "platform/windows/controls/frame_timer.h"

#include <utility>

namespace pelk {

bool isMotionWanted() {
    BOOL wanted = TRUE;
    SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &wanted, 0);
    return wanted != FALSE;
}

void FrameTimer::start(double seconds, std::function<void(double share)> frame) {
    frame_ = std::move(frame);
    seconds_ = seconds;
    begin_ = std::chrono::steady_clock::now();
    if (seconds <= 0 || !isMotionWanted() ||
        SetTimer(window_, kTimer, USER_TIMER_MINIMUM, nullptr) == 0)
        end();
}

/// The function may start another animation.
void FrameTimer::tick() {
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin_;
    if (passed.count() >= seconds_)
        end();
    else if (const auto frame = passed.count() > 0 ? frame_ : nullptr)
        frame(passed.count() / seconds_);
}

void FrameTimer::end() {
    KillTimer(window_, kTimer);
    if (const auto frame = std::exchange(frame_, nullptr))
        frame(1);
}

}  // namespace pelk
