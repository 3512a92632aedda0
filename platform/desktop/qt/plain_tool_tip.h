#pragma once
// Tool tips take whatever looks like markup for markup.

#include <QString>

namespace pelk {

/// What shows the text to the letter as a tool tip. Names and subjects come from elsewhere: as
/// markup they would load files and pass for what they are not.
inline QString plainToolTip(const QString& text) {
    if (text.isEmpty())
        return text;
    return QStringLiteral("<span style=\"white-space:pre-wrap\">") + text.toHtmlEscaped() +
           QStringLiteral("</span>");
}

}  // namespace pelk
