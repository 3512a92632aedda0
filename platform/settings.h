#pragma once
// What the forms remember from one start of the program to the next: choices and places, no data
// of the database. Only the thread that owns the windows may call.

#include <map>
#include <optional>
#include <string>

namespace pelk {

class Settings {
 public:
    virtual ~Settings() = default;
    /// Returns the text kept under the key; nothing if there is none or it cannot be read.
    virtual std::optional<std::string> read(const std::string& key) const = 0;
    /// Keeps the text under the key, a name of ASCII letters. A text that cannot be saved is
    /// forgotten at the end of the program at the latest; that is no error.
    virtual void write(const std::string& key, const std::string& text) = 0;
};

/// Forgets everything at the end of the program.
class ForgetfulSettings : public Settings {
 public:
    std::optional<std::string> read(const std::string& key) const override {
        const auto found = texts_.find(key);
        return found == texts_.end() ? std::nullopt : std::optional(found->second);
    }
    void write(const std::string& key, const std::string& text) override { texts_[key] = text; }

 private:
    std::map<std::string, std::string> texts_;
};

}  // namespace pelk
