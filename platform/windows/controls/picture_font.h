#pragma once
// The font of texts in pictures: that of Windows' messages, in any size.

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/windows/controls/gdiplus_session.h"

namespace pelk {

class PictureFont {
 public:
    /// `messages` is the font in which Windows shows messages. Throws `Error` when GDI+ does not
    /// start or has no font.
    explicit PictureFont(HFONT messages);

    const Gdiplus::FontFamily& family() const { return *family_; }
    /// Returns how far the text's baseline is from its top, in a font of size 1.
    double ascent(bool bold) const;
    /// Returns the width of a text of size 1 in bold, and remembers it: a picture asks for
    /// thousands of them again and again.
    double widthOf(std::string_view text) const;

 private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    double measured(std::string_view text) const;

    /// Declared first, so that it outlives what GDI+ has made.
    std::shared_ptr<GdiplusSession> session_ = GdiplusSession::shared();
    std::unique_ptr<Gdiplus::FontFamily> family_;
    std::unique_ptr<Gdiplus::Bitmap> paper_;
    std::unique_ptr<Gdiplus::Graphics> ruler_;
    std::unique_ptr<Gdiplus::Font> measuringFont_;
    mutable std::unordered_map<std::string, double, Hash, std::equal_to<>> known_;
};

/// Returns how pictures lay out a text: on one line, without space around it.
const Gdiplus::StringFormat& oneLineFormat();

inline int fontStyle(bool bold) {
    return bold ? Gdiplus::FontStyleBold : Gdiplus::FontStyleRegular;
}

}  // namespace pelk
