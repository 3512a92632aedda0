#include "platform/windows/controls/printer.h"

// Requires the include above.
#include <cderr.h>
#include <commdlg.h>

#include <utility>

#include "platform/error.h"
#include "platform/windows/controls/gdiplus_canvas.h"
#include "platform/windows/controls/modal_session.h"
#include "platform/windows/controls/module.h"
#include "platform/windows/controls/pointer.h"
#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

constexpr double kPointsPerInch = 72;

void require(bool done) {
    if (!done)
        throw Error("The printer refuses the picture.");
}

/// The settings that a box starts with and returns.
class PrinterSettings {
 public:
    explicit PrinterSettings(HWND owner) {
        box.lStructSize = sizeof box;
        box.hwndOwner = owner;
        box.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
        if (PrintDlgW(&box))
            chooseLandscape();
        box.Flags = PD_RETURNDC | PD_NOWARNING | PD_ALLPAGES | PD_NOPAGENUMS | PD_NOSELECTION |
                    PD_USEDEVMODECOPIESANDCOLLATE;
    }
    PrinterSettings(const PrinterSettings&) = delete;
    PrinterSettings& operator=(const PrinterSettings&) = delete;
    ~PrinterSettings() {
        GlobalFree(box.hDevMode);
        GlobalFree(box.hDevNames);
    }

    PRINTDLGW box = {};

 private:
    void chooseLandscape() const {
        auto* const mode = static_cast<DEVMODEW*>(GlobalLock(box.hDevMode));
        if (mode == nullptr)
            return;
        mode->dmFields |= DM_ORIENTATION;
        mode->dmOrientation = DMORIENT_LANDSCAPE;
        GlobalUnlock(box.hDevMode);
    }
};

}  // namespace

std::optional<Printer> choosePrinter() {
    const WindowScope scope;
    const PointerForBox pointer;
    const HWND owner = GetActiveWindow();
    const ModalSession modal(owner);
    PrinterSettings settings(owner);
    if (PrintDlgW(&settings.box))
        return Printer(settings.box.hDC);
    const DWORD fault = CommDlgExtendedError();
    if (fault == PDERR_NODEFAULTPRN || fault == PDERR_NODEVICES)
        throw Error("Windows has no printer.");
    require(fault == 0);
    return std::nullopt;
}

Printer::Printer(Printer&& other) noexcept : dc_(std::exchange(other.dc_, nullptr)) {}

Printer::~Printer() {
    if (dc_ != nullptr)
        DeleteDC(dc_);
}

bool Printer::print(const std::string& title, const PictureFont& font,
                    const DrawPicture& draw) const {
    const std::wstring name = toWide(title);
    DOCINFOW document = {};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    if (StartDocW(dc_, &document) <= 0) {
        require(GetLastError() == ERROR_CANCELLED);
        return false;
    }
    try {
        printPage(font, draw);
    } catch (...) {
        AbortDoc(dc_);
        throw;
    }
    return true;
}

void Printer::printPage(const PictureFont& font, const DrawPicture& draw) const {
    require(StartPage(dc_) > 0);
    drawPage(font, draw);
    require(EndPage(dc_) > 0);
    require(EndDoc(dc_) > 0);
}

/// Some printers have more pixels in one direction than in the other.
void Printer::drawPage(const PictureFont& font, const DrawPicture& draw) const {
    const double across = GetDeviceCaps(dc_, LOGPIXELSX) / kPointsPerInch;
    const double down = GetDeviceCaps(dc_, LOGPIXELSY) / kPointsPerInch;
    Gdiplus::Graphics target(dc_);
    target.ScaleTransform(1, static_cast<float>(down / across));
    GdiplusCanvas canvas(target, font, across);
    draw(canvas, {GetDeviceCaps(dc_, HORZRES) / across, GetDeviceCaps(dc_, VERTRES) / down});
}

}  // namespace pelk
