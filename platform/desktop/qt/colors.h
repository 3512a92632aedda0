#pragma once
// Converts colours between Qt and the portable code.

#include <QColor>

#include "platform/tree_model.h"

namespace pelk {

inline Color fromQt(const QColor& color) {
    return {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
            static_cast<std::uint8_t>(color.blue())};
}

inline QColor toQt(const Color& color) {
    return {color.red, color.green, color.blue};
}

}  // namespace pelk
