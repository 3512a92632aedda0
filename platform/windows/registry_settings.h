#pragma once
// Settings in the registry, below a key of the current user.

#include "platform/settings.h"

namespace pelk {

class RegistrySettings : public Settings {
 public:
    /// `path` is below HKEY_CURRENT_USER. Reading creates nothing.
    explicit RegistrySettings(std::wstring path = L"Software\\Pelk") : path_(std::move(path)) {}

    std::optional<std::string> read(const std::string& key) const override;
    void write(const std::string& key, const std::string& text) override;

 private:
    std::wstring path_;
};

}  // namespace pelk
