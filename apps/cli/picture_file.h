#pragma once
// Pictures as files.

#include <string>

#include "map/scene.h"

class QPainter;

namespace pelk {

enum class PictureFormat { Svg, Png, Pdf };

/// Draws a scene in its own coordinates.
void drawScene(QPainter& painter, const Scene& scene);

struct PictureSize {
    int width = 0;
    int height = 0;
};

/// Returns the whole arrangement as the content of a file; the size is in pixels, in a PDF in
/// points. Needs no display. Texts of PNG and PDF are measured in the font they are drawn in.
/// Throws `Error` when the picture does not fit into the memory.
std::string pictureFile(const Arrangement& arrangement, SceneStyle style, PictureSize size,
                        PictureFormat format);

}  // namespace pelk
