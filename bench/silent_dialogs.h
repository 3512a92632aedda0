#pragma once
// Dialogs for measurements, which nobody answers.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/dialogs.h"

namespace pelk {

/// Answers what it was told to, and shows nothing.
class SilentDialogs : public Dialogs {
 public:
    /// What the user types next.
    std::string answer;

    Answer message(const std::string& text, Buttons) override {
        std::fprintf(stderr, "%s\n", text.c_str());
        std::exit(1);
    }
    bool confirm(const std::string& question, const std::string&) override {
        return message(question, Buttons::OkCancel) == Answer::Ok;
    }
    std::string input(const std::string&, const std::string&, const std::string&,
                      std::size_t) override {
        return answer;
    }
    std::string openFile(const std::string&, const std::string&) override { return {}; }
    std::string saveFile(const std::string&, const std::string&) override { return {}; }
};

}  // namespace pelk
