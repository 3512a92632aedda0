#pragma once
// Times what a window shows, up to the point where the toolkit has nothing left to do.

#include <QApplication>
#include <cstdio>
#include <cstdlib>
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

/// The main function of a program that measures windows without a display: its one argument is the
/// folder that will hold a database. Returns the exit code.
template <typename Measurements>
int measureWindows(int argc, char** argv, const char* program) {
    if (argc != 2) {
        std::fprintf(stderr, "%s FOLDER\n", program);
        return 2;
    }
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication application(argc, argv);
    Measurements(argv[1]).measureAll();
    return 0;
}

}  // namespace pelk
