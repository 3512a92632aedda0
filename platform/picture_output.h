#pragma once
// Pictures for files and for the printer. Only the thread that owns the windows may call.

#include <functional>
#include <string>
#include <string_view>

#include "platform/canvas.h"

namespace pelk {

/// Draws a picture of that size.
using DrawPicture = std::function<void(Canvas& canvas, CanvasSize size)>;

class PictureOutput {
 public:
    virtual ~PictureOutput() = default;

    /// Returns the width of a text of size 1 in the font of the pictures, in bold.
    virtual double widthOf(std::string_view text) const = 0;
    /// Returns the picture as the content of a PNG file with one pixel for each unit. Throws
    /// `Error` when it does not fit into the memory.
    virtual std::string png(CanvasSize size, const DrawPicture& draw) = 0;
    /// Whether `pdf` is there. It returns the content of a PDF file of one page, with one point for
    /// each unit. Throws `Error`.
    virtual bool hasPdf() const = 0;
    virtual std::string pdf(CanvasSize size, const DrawPicture& draw) = 0;
    /// Lets the user choose a printer, and prints one page, with one point for each unit. Returns
    /// false when the user cancels. Throws `Error` when the printer refuses.
    virtual bool print(const std::string& title, const DrawPicture& draw) = 0;
};

}  // namespace pelk
