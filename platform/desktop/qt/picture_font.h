#pragma once
// The font of pictures.

#include <QFont>
#include <QString>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace pelk {

/// Returns the font in a size that is scaled down for each text: fonts have whole sizes only, and
/// widths must grow with the size exactly. Requires a QGuiApplication.
QFont pictureFont(bool bold);
inline constexpr int kPictureFontSize = 100;

QString pictureText(std::string_view text);

/// Measures texts, and remembers their widths: a picture asks for thousands of them again and
/// again.
class PictureTextWidth {
 public:
    /// Returns the width at size 1 in bold, which is the widest that a text is drawn in.
    double widthOf(std::string_view text) const;

 private:
    struct Hash : std::hash<std::string_view> {
        // NOLINTNEXTLINE(readability-identifier-naming): the standard library asks for this name.
        using is_transparent = void;
    };
    mutable std::unordered_map<std::string, double, Hash, std::equal_to<>> known_;
};

}  // namespace pelk
