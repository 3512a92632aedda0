#include "platform/windows/controls/picture_output.h"

#include <cmath>

#include "platform/error.h"
#include "platform/windows/com.h"
#include "platform/windows/controls/gdiplus_canvas.h"
#include "platform/windows/controls/look.h"
#include "platform/windows/controls/printer.h"

namespace pelk {
namespace {

/// Writes PNG files; the same on every Windows.
constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

void require(bool done) {
    if (!done)
        throw Error("The picture is too large for the memory.");
}

std::string contentOf(IStream& stream) {
    STATSTG state = {};
    require(stream.Stat(&state, STATFLAG_NONAME) == S_OK);
    std::string content(static_cast<std::size_t>(state.cbSize.QuadPart), '\0');
    ULONG read = 0;
    require(stream.Seek({}, STREAM_SEEK_SET, nullptr) == S_OK &&
            stream.Read(content.data(), static_cast<ULONG>(content.size()), &read) == S_OK &&
            read == content.size());
    return content;
}

std::string pngOf(Gdiplus::Bitmap& image) {
    ComPtr<IStream> stream;
    require(CreateStreamOnHGlobal(nullptr, TRUE, stream.put()) == S_OK);
    require(image.Save(stream.get(), &kPngEncoder, nullptr) == Gdiplus::Ok);
    return contentOf(*stream.get());
}

}  // namespace

const PictureFont& Win32PictureOutput::font() const {
    if (font_ == nullptr) {
        const std::unique_ptr<std::remove_pointer_t<HFONT>, decltype(&DeleteObject)> messages(
            createMessageFont(), &DeleteObject);
        font_ = std::make_unique<PictureFont>(messages.get());
    }
    return *font_;
}

std::string Win32PictureOutput::png(CanvasSize size, const DrawPicture& draw) {
    const PictureFont& texts = font();
    Gdiplus::Bitmap image(static_cast<int>(std::lround(size.width)),
                          static_cast<int>(std::lround(size.height)), PixelFormat24bppRGB);
    require(image.GetLastStatus() == Gdiplus::Ok);
    {
        Gdiplus::Graphics target(&image);
        GdiplusCanvas canvas(target, texts, 1);
        draw(canvas, size);
    }
    return pngOf(image);
}

std::string Win32PictureOutput::pdf(CanvasSize, const DrawPicture&) {
    throw Error("Windows cannot write PDF files. Print to a printer that does.");
}

bool Win32PictureOutput::print(const std::string& title, const DrawPicture& draw) {
    const auto printer = choosePrinter();
    return printer && printer->print(title, font(), draw);
}

}  // namespace pelk
