#pragma once
// A printer that the user chooses.

#include <windows.h>

#include <optional>
#include <string>

#include "platform/picture_output.h"
#include "platform/windows/controls/picture_font.h"

namespace pelk {

class Printer {
 public:
    /// Takes ownership of a printer's device context.
    explicit Printer(HDC dc) : dc_(dc) {}
    Printer(Printer&& other) noexcept;
    Printer& operator=(Printer&&) = delete;
    ~Printer();

    /// Prints a page. Returns false when the user cancels, for example the choice of a file that
    /// stands for the paper. Throws `Error` when the printer refuses, and what `draw` throws.
    bool print(const std::string& title, const PictureFont& font, const DrawPicture& draw) const;

 private:
    void printPage(const PictureFont& font, const DrawPicture& draw) const;
    void drawPage(const PictureFont& font, const DrawPicture& draw) const;

    HDC dc_;
};

/// Asks for a printer, with the page in landscape format at first. Returns nothing when the user
/// cancels. Throws `Error` when there is no printer.
std::optional<Printer> choosePrinter();

}  // namespace pelk
