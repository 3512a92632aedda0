#pragma once
// Pictures for files and for the printer on Qt. Everything but printing needs no display.

#include "platform/desktop/qt/picture_font.h"
#include "platform/picture_output.h"

namespace pelk {

/// Each call requires a QGuiApplication, printing a QApplication.
class QtPictureOutput : public PictureOutput {
 public:
    double widthOf(std::string_view text) const override { return textWidth_.widthOf(text); }
    std::string png(CanvasSize size, const DrawPicture& draw) override;
    bool hasPdf() const override { return true; }
    std::string pdf(CanvasSize size, const DrawPicture& draw) override;
    bool print(const std::string& title, const DrawPicture& draw) override;

 private:
    PictureTextWidth textWidth_;
};

}  // namespace pelk
