#pragma once
// Pictures as SVG files (https://www.w3.org/TR/SVG11/).

#include <string>

#include "map/scene.h"

namespace pelk {

/// Returns the scene as a document in UTF-8. Texts stay texts, which can be searched and edited.
std::string svgOf(const Scene& scene);

}  // namespace pelk
