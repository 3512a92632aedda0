#pragma once
// Saves and prints the picture of a form.

#include "map/arrangement.h"
#include "platform/platform.h"
#include "platform/user_interface.h"

namespace pelk {

/// The kinds of files that `savePicture` offers.
inline constexpr const char* kPictureFileFilter =
    "SVG, sharp at any size (*.svg)|*.svg|PNG (*.png)|*.png";
inline constexpr const char* kPictureFileFilterWithPdf =
    "SVG, sharp at any size (*.svg)|*.svg|PNG (*.png)|*.png|PDF (*.pdf)|*.pdf";

/// Asks for a file, for a PNG also for the size, and writes the whole picture in the format of the
/// ending, on a light background. Tells the user of a name or a size that does not fit. Throws
/// `Error` with the old file intact.
void savePicture(const Arrangement& arrangement, const UserInterface& ui, const Platform& platform);

/// Lets the user choose a printer, and prints the whole picture on one page. Throws `Error`.
void printPicture(const Arrangement& arrangement, const UserInterface& ui);

}  // namespace pelk
