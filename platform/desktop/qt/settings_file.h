#pragma once
// Settings in a file.

#include "platform/settings.h"

namespace pelk {

class SettingsFile : public Settings {
 public:
    /// Keeps the settings in `file`, which need not exist; nowhere if the name is empty. Reading
    /// creates nothing.
    explicit SettingsFile(std::string file) : file_(std::move(file)) {}

    std::optional<std::string> read(const std::string& key) const override;
    void write(const std::string& key, const std::string& text) override;

 private:
    std::string file_;
};

}  // namespace pelk
