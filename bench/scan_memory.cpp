// Measures whether a scan needs more memory for more messages of the same people. Usage:
// scan_memory FOLDER, with the mail that ./bench-all writes there.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/measure.h"
#include "bench/scan_mail.h"

namespace pelk {
namespace {

/// Returns the peak memory of a scan in a separate process, in MB.
double megabytesFor(const std::string& path) {
    const pid_t child = ::fork();
    if (child == 0) {
        scanMail(*makeEmptyDatabase(), path);
        std::_Exit(0);
    }
    int status = 0;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) != child || status != 0)
        std::exit(1);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "scan_memory FOLDER\n");
        return 2;
    }
    const std::string folder = argv[1];
    pelk::print({"Most memory for 100,000 messages", "warm",
                 pelk::megabytesFor(folder + "/repeated.mbox"),
                 "10,000 messages of the same people", pelk::megabytesFor(folder + "/few.mbox"),
                 "MB", 1.2});
}
