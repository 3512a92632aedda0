#include "apps/cli/offscreen_fonts.h"

#include <QLoggingCategory>

namespace pelk {

OffscreenFonts::OffscreenFonts() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt warns of a missing session, which a picture does not need.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    application_.emplace(count_, words_.data());
}

}  // namespace pelk
