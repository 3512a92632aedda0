#pragma once
// Measures pieces of work in turns and prints the results as rows of a table.

#include <functional>
#include <string>
#include <vector>

namespace pelk {

double millisecondsOf(const std::function<void()>& work);

struct Work {
    std::function<void()> run;
    /// Called before each run and not timed; may be empty.
    std::function<void()> prepare = {};
};

/// Returns the median time of each piece of work in milliseconds. The pieces run in turns, so that
/// a slow phase of the machine affects all of them.
std::vector<double> medians(int rounds, const std::vector<Work>& works);

struct Result {
    std::string question;
    /// "warm" if the input is in the page cache, else "cold".
    const char* cache;
    double own;
    std::string other;
    double others;
    const char* unit;
    /// The goal: `own` is at most this many times `others`; 0 if there is no goal.
    double limit;
};

/// Prints a row of the table and flushes it.
void print(const Result& result);
/// Prints a row for a measurement that was skipped.
void printSkipped(const std::string& question, const std::string& reason);

/// Drops a file, or the files in a directory, from the page cache.
void forgetCached(const std::string& path);

/// Whether the shell finds the command.
bool isInstalled(const std::string& command);

}  // namespace pelk
