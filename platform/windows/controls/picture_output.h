#pragma once
// Pictures as files and on paper, with GDI+.

#include <memory>

#include "platform/picture_output.h"
#include "platform/windows/controls/picture_font.h"

namespace pelk {

/// Windows has no PDF but what a printer writes.
class Win32PictureOutput : public PictureOutput {
 public:
    double widthOf(std::string_view text) const override { return font().widthOf(text); }
    std::string png(CanvasSize size, const DrawPicture& draw) override;
    bool hasPdf() const override { return false; }
    std::string pdf(CanvasSize size, const DrawPicture& draw) override;
    bool print(const std::string& title, const DrawPicture& draw) override;

 private:
    const PictureFont& font() const;

    /// Made on first use, because GDI+ would delay the start of the mail client.
    mutable std::unique_ptr<PictureFont> font_;
};

}  // namespace pelk
