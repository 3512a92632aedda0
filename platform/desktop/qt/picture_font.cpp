#include "platform/desktop/qt/picture_font.h"

#include <QFontMetricsF>

namespace pelk {
namespace {

/// More texts than a picture of the most people has, with all their shortened forms.
constexpr std::size_t kMostKnown = 50000;

double measured(std::string_view text) {
    return QFontMetricsF(pictureFont(true)).horizontalAdvance(pictureText(text)) / kPictureFontSize;
}

}  // namespace

QFont pictureFont(bool bold) {
    QFont font(QStringLiteral("sans-serif"));
    font.setPixelSize(kPictureFontSize);
    font.setBold(bold);
    // Hints would change the widths with the size.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QString pictureText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

double PictureTextWidth::widthOf(std::string_view text) const {
    if (const auto found = known_.find(text); found != known_.end())
        return found->second;
    if (known_.size() >= kMostKnown)
        known_.clear();
    return known_.emplace(text, measured(text)).first->second;
}

}  // namespace pelk
