#pragma once
// Times pieces of work beside each other, and prints what came out as rows of one table.

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

/// The median time of each in milliseconds. They run in turns, so that a slow moment of the machine
/// falls on all alike.
std::vector<double> medians(int rounds, const std::vector<Work>& works);

struct Result {
    std::string question;
    /// Whether what is read was in the page cache ("warm") or not ("cold").
    const char* cache;
    double own;
    std::string other;
    double others;
    const char* unit;
    /// The aim: `own` is at most so many times `others`. 0 for none.
    double limit;
};

/// A row of the table, written at once.
void print(const Result& result);
/// In the place of a row.
void printSkipped(const std::string& question, const std::string& reason);

/// Lets the system forget what it has cached of a file, or of the files in a directory.
void forgetCached(const std::string& path);

/// Whether the shell finds the command.
bool isInstalled(const std::string& command);

}  // namespace pelk
