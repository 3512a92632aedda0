#pragma once
// A folder of its own in which each test runs the program.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <iterator>
#include <memory>

#include "tests/support/temporary_folder.h"

namespace pelk {

inline constexpr const char* kMail =
    "From ann@a.example Tue Mar  4 09:12:00 2025\n"
    "From: Ann Smith <ann@a.example>\nTo: Bob <BOB@b.example>, cy@c.example\nSubject: one\n\nHi\n\n"
    "From bob@b.example Tue Mar  4 09:13:00 2025\n"
    "From: Bob <bob@b.example>\nTo: Ann Smith <ann@a.example>\nSubject: two\n\nHi\n\n";

struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

class CliTest : public ::testing::Test {
 protected:
    TemporaryFolder folder;
    std::string box = folder.write("Inbox", kMail);
    std::string database = folder.path() + "/data/pelk/pelk.db";
    /// Precedes the program on the command line.
    std::string environment;

    /// Runs the program with its database in the test's own folder.
    Outcome run(const std::string& arguments, const std::string& input = "") {
        return runAnything("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + environment +
                               " " PELK_PROGRAM " --data data " + arguments,
                           input);
    }
    /// Runs any program in the test's own folder.
    Outcome runAnything(const std::string& program, const std::string& input = "") {
        const std::string errors = folder.path() + "/errors";
        const std::string command = "cd " + folder.path() + " && " + program + " 2>" + errors +
                                    " <" + folder.write("input", input);
        Outcome outcome;
        std::FILE* const pipe = ::popen(command.c_str(), "r");
        std::array<char, 4096> buffer;
        while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe))
            outcome.output.append(buffer.data(), size);
        const int status = ::pclose(pipe);
        outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        outcome.errors = contentOf(errors);
        return outcome;
    }
    static std::string contentOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Expects that text in what the program prints or reports.
    void expectSays(const std::string& arguments, const std::string& text) {
        const Outcome outcome = run(arguments);
        EXPECT_NE((outcome.output + outcome.errors).find(text), std::string::npos)
            << arguments << " says: " << outcome.output << outcome.errors;
    }
    void expectRefused(const std::string& arguments, int status, const std::string& error) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, status) << arguments;
        EXPECT_EQ(outcome.errors, "pelk: " + error + "\n");
        EXPECT_EQ(outcome.output, "");
    }
};

}  // namespace pelk
