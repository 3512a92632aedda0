#include "platform/windows/controls/picture_font.h"

#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

/// Large, so that the widths are those of every size.
constexpr float kMeasuredSize = 100;

/// Some fonts of messages are bitmaps, which GDI+ cannot draw.
std::unique_ptr<Gdiplus::FontFamily> familyOf(HFONT font) {
    LOGFONTW description = {};
    GetObjectW(font, sizeof description, &description);
    auto family = std::make_unique<Gdiplus::FontFamily>(description.lfFaceName);
    if (!family->IsAvailable())
        family.reset(Gdiplus::FontFamily::GenericSansSerif()->Clone());
    return family;
}

}  // namespace

PictureFont::PictureFont(HFONT messages)
    : family_(familyOf(messages)),
      paper_(std::make_unique<Gdiplus::Bitmap>(1, 1)),
      ruler_(std::make_unique<Gdiplus::Graphics>(paper_.get())),
      measured_(std::make_unique<Gdiplus::Font>(family_.get(), kMeasuredSize, fontStyle(true),
                                                Gdiplus::UnitPixel)) {
    ruler_->SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAlias);
}

double PictureFont::ascent(bool bold) const {
    const int style = fontStyle(bold);
    return static_cast<double>(family_->GetCellAscent(style)) / family_->GetEmHeight(style);
}

double PictureFont::widthOf(std::string_view text) const {
    const std::wstring wide = toWide(text);
    Gdiplus::RectF box;
    ruler_->MeasureString(wide.c_str(), static_cast<int>(wide.size()), measured_.get(),
                          Gdiplus::PointF(), &oneLineFormat(), &box);
    return static_cast<double>(box.Width / kMeasuredSize);
}

const Gdiplus::StringFormat& oneLineFormat() {
    return *Gdiplus::StringFormat::GenericTypographic();
}

}  // namespace pelk
