#pragma once
// Fonts for a command, which may run without a display.

#include <QGuiApplication>
#include <array>
#include <optional>

namespace pelk {

/// While it lives, Qt has fonts. Requires: there is no application object.
class OffscreenFonts {
 public:
    OffscreenFonts();

 private:
    int count_ = 1;
    std::array<char, 5> name_{"pelk"};
    std::array<char*, 2> words_{name_.data(), nullptr};
    std::optional<QGuiApplication> application_;
};

}  // namespace pelk
