#pragma once
// Tool tips that never interpret markup.

#include <QString>

namespace pelk {

/// Returns a tool tip that shows `text` literally. Names and subjects come from strangers: as
/// markup they could load files and imitate the program.
inline QString plainToolTip(const QString& text) {
    if (text.isEmpty())
        return text;
    return QStringLiteral("<span style=\"white-space:pre-wrap\">") + text.toHtmlEscaped() +
           QStringLiteral("</span>");
}

}  // namespace pelk
