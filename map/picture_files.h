#pragma once
// Pictures as files and on paper: their formats, sizes and look, for forms and for the command
// line.

#include <optional>
#include <string>

#include "map/scene.h"
#include "platform/language.h"
#include "platform/picture_output.h"

namespace pelk {

enum class PictureFormat { Svg, Png, Pdf };

/// In pixels; in a PDF in points.
struct PictureSize {
    int width = 0;
    int height = 0;
};
inline constexpr PictureSize kPictureSize{1200, 900};

/// Returns the format that the ending of the path names, in any case; nothing for another ending.
std::optional<PictureFormat> pictureFormat(const std::string& path, const Language& language);

/// What `pictureSizeIn` takes, for messages. Larger pictures would not fit into the memory.
inline constexpr const char* kPictureSizes =
    "a width and a height from 100 to 20000, such as 1200x900";

/// Returns the size that a text such as "1200x900" gives; nothing for any other text.
std::optional<PictureSize> pictureSizeIn(const std::string& text);

/// Returns what is above the picture.
std::string pictureTitle(const Arrangement& arrangement);

/// Returns the whole arrangement with the title, and with the list of groups where there is room.
/// Texts are at least as large as `fontSize`, and larger in a large picture.
Scene pictureScene(const Arrangement& arrangement, CanvasSize size, double fontSize,
                   const TextWidth& textWidth);

/// Returns the content of a file. Throws `Error` when the picture does not fit into the memory.
/// Requires: `pictures` has the format.
std::string pictureFile(const Arrangement& arrangement, PictureSize size, PictureFormat format,
                        PictureOutput& pictures);

}  // namespace pelk
