#pragma once
// Boxes answered by a script: the boxes that a test expects, in their order, with what the user
// answers. A box that is not next in the script fails the test, and so does one that never came.

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <utility>

#include "platform/dialogs.h"

namespace pelk {

class ScriptedDialogs : public Dialogs {
 public:
    ~ScriptedDialogs() override { expectAllShown(); }

    /// What the last question said below its text, and what the last input box selected.
    std::string consequence;
    std::string selected;

    void expectMessage(const std::string& text, Buttons buttons = Buttons::Ok,
                       Answer answer = Answer::Ok) {
        script_.push_back({"message \"" + text + "\" " + nameOf(buttons), answer, ""});
    }
    void expectInput(const std::string& title, const std::string& prompt,
                     const std::string& initial, const std::string& answer) {
        script_.push_back({inputCall(title, prompt, initial), Answer::Ok, answer});
    }
    void expectFile(const std::string& title, const std::string& filter,
                    const std::string& answer) {
        script_.push_back({"file \"" + title + "\" " + filter, Answer::Ok, answer});
    }
    /// Fails the test for each box that has not come yet, and forgets them.
    void expectAllShown() {
        for (const Step& step : script_)
            ADD_FAILURE() << "This box never came: " << step.call;
        script_.clear();
    }

    Answer message(const std::string& text, Buttons buttons) override {
        return next("message \"" + text + "\" " + nameOf(buttons), closing(buttons)).answer;
    }
    /// The script lists the question like any message; the rest is in `consequence`.
    bool confirm(const std::string& question, const std::string& text) override {
        consequence = text;
        return message(question, Buttons::OkCancel) == Answer::Ok;
    }
    using Dialogs::input;
    std::string input(const std::string& title, const std::string& prompt,
                      const std::string& initial, std::size_t length) override {
        selected = initial.substr(0, length);
        return next(inputCall(title, prompt, initial), Answer::Cancel).text;
    }
    std::string openFile(const std::string& title, const std::string& filter) override {
        return next("file \"" + title + "\" " + filter, Answer::Cancel).text;
    }
    std::string saveFile(const std::string& title, const std::string& filter) override {
        return openFile(title, filter);
    }

 private:
    struct Step {
        std::string call;
        Answer answer = Answer::Ok;
        std::string text;
    };

    static std::string nameOf(Buttons buttons) {
        return buttons == Buttons::Ok ? "Ok" : buttons == Buttons::OkCancel ? "OkCancel" : "YesNo";
    }
    static Answer closing(Buttons buttons) {
        return buttons == Buttons::Ok         ? Answer::Ok
               : buttons == Buttons::OkCancel ? Answer::Cancel
                                              : Answer::No;
    }
    static std::string inputCall(const std::string& title, const std::string& prompt,
                                 const std::string& initial) {
        return "input \"" + title + "\" \"" + prompt + "\" \"" + initial + "\"";
    }

    /// An unexpected box leaves the script where it is, and is closed.
    Step next(const std::string& call, Answer closed) {
        if (script_.empty() || script_.front().call != call) {
            ADD_FAILURE() << "Unexpected box: " << call
                          << "\nExpected: " << (script_.empty() ? "none" : script_.front().call);
            return {call, closed, ""};
        }
        Step step = std::move(script_.front());
        script_.pop_front();
        return step;
    }

    std::deque<Step> script_;
};

}  // namespace pelk
