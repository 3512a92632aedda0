#pragma once
// Times what a window shows, up to the point where the toolkit has nothing left to do.

#include <QCoreApplication>
#include <string>

#include "bench/measure.h"

namespace pelk {

/// Lets Qt finish pending layout and painting.
inline void settle() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

/// Times two works, each with the layout and painting that it causes, and prints the row.
inline void compare(const std::string& what, const Work& own, const std::string& other,
                    const Work& plain, double limit = 3) {
    constexpr int kRounds = 9;
    const auto settling = [](const Work& work) {
        return Work{[run = work.run] { run(), settle(); }, work.prepare};
    };
    const auto times = medians(kRounds, {settling(own), settling(plain)});
    print({what, "warm", times[0], other, times[1], "ms", limit});
}

}  // namespace pelk
