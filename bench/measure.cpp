#include "bench/measure.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace pelk {
namespace {

/// Writes a ratio below 1 as a fraction, such as 1/17.3.
std::string ratioText(double ratio) {
    char text[32];
    std::snprintf(text, sizeof text, ratio < 1 ? "1/%.3g" : "%.3g", ratio < 1 ? 1 / ratio : ratio);
    return text;
}

void forgetFile(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    // The system drops only pages that are on the disk.
    ::fdatasync(file);
    ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    ::close(file);
}

}  // namespace

double millisecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

std::vector<double> medians(int rounds, const std::vector<Work>& works) {
    std::vector<std::vector<double>> times(works.size());
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < works.size(); ++i) {
            if (works[i].prepare)
                works[i].prepare();
            times[i].push_back(millisecondsOf(works[i].run));
        }
    std::vector<double> middles;
    for (std::vector<double>& of : times) {
        std::sort(of.begin(), of.end());
        middles.push_back((of[of.size() / 2] + of[(of.size() - 1) / 2]) / 2);
    }
    return middles;
}

void print(const Result& result) {
    const double ratio = result.own / result.others;
    const char* const verdict = result.limit == 0 ? "" : ratio <= result.limit ? "met" : "missed";
    std::printf("| %s | %s | %.4g %s | %s: %.4g %s | %s | %s | %s |\n", result.question.c_str(),
                result.cache, result.own, result.unit, result.other.c_str(), result.others,
                result.unit, ratioText(ratio).c_str(),
                result.limit == 0 ? "" : ratioText(result.limit).c_str(), verdict);
    std::fflush(stdout);
}

void printSkipped(const std::string& question, const std::string& reason) {
    std::printf("| %s | | | skipped: %s | | | |\n", question.c_str(), reason.c_str());
}

void forgetCached(const std::string& path) {
    if (!std::filesystem::is_directory(path))
        return forgetFile(path);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
        if (entry.is_regular_file())
            forgetFile(entry.path());
}

bool isInstalled(const std::string& command) {
    return std::system(("command -v " + command + " >/dev/null").c_str()) == 0;
}

}  // namespace pelk
