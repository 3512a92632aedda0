#include "platform/windows/controls/picture_font.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/windows/controls/screen_dc.h"
#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

/// Large, so that the widths are those of every size.
constexpr float kMeasuredSize = 100;
/// More texts than a picture of the most people has, with all their shortened forms.
constexpr std::size_t kMostKnown = 50000;

/// Returns the name of the outline font that GDI takes for a font, which may bear another name;
/// empty for a bitmap font, which GDI+ cannot draw.
std::wstring outlineNameOf(HFONT font) {
    const ScreenDc dc(font);
    std::vector<std::byte> buffer(GetOutlineTextMetricsW(dc.get(), 0, nullptr));
    if (buffer.empty())
        return {};
    auto* const metrics = reinterpret_cast<OUTLINETEXTMETRICW*>(buffer.data());
    GetOutlineTextMetricsW(dc.get(), static_cast<UINT>(buffer.size()), metrics);
    const auto name = reinterpret_cast<std::uintptr_t>(metrics->otmpFamilyName);
    return reinterpret_cast<const wchar_t*>(buffer.data() + name);
}

std::unique_ptr<Gdiplus::FontFamily> familyOf(HFONT font) {
    auto family = std::make_unique<Gdiplus::FontFamily>(outlineNameOf(font).c_str());
    if (family->IsAvailable())
        return family;
    const auto* const usual = Gdiplus::FontFamily::GenericSansSerif();
    if (usual == nullptr)
        throw Error("Windows has no font for pictures.");
    return std::unique_ptr<Gdiplus::FontFamily>(usual->Clone());
}

}  // namespace

PictureFont::PictureFont(HFONT messages)
    : family_(familyOf(messages)),
      paper_(std::make_unique<Gdiplus::Bitmap>(1, 1)),
      ruler_(std::make_unique<Gdiplus::Graphics>(paper_.get())),
      measuringFont_(std::make_unique<Gdiplus::Font>(family_.get(), kMeasuredSize, fontStyle(true),
                                                     Gdiplus::UnitPixel)) {
    ruler_->SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAlias);
}

double PictureFont::ascent(bool bold) const {
    const int style = fontStyle(bold);
    return static_cast<double>(family_->GetCellAscent(style)) / family_->GetEmHeight(style);
}

double PictureFont::widthOf(std::string_view text) const {
    if (const auto found = known_.find(text); found != known_.end())
        return found->second;
    if (known_.size() >= kMostKnown)
        known_.clear();
    return known_.emplace(text, measured(text)).first->second;
}

double PictureFont::measured(std::string_view text) const {
    const std::wstring wide = toWide(text);
    Gdiplus::RectF box;
    ruler_->MeasureString(wide.c_str(), static_cast<int>(wide.size()), measuringFont_.get(),
                          Gdiplus::PointF(), &oneLineFormat(), &box);
    return static_cast<double>(box.Width / kMeasuredSize);
}

const Gdiplus::StringFormat& oneLineFormat() {
    return *Gdiplus::StringFormat::GenericTypographic();
}

}  // namespace pelk
