#include "map/picture_saving.h"

#include "map/draw_scene.h"
#include "map/picture_files.h"
#include "platform/whole_files.h"

namespace pelk {
namespace {

/// Paper is read from nearer than a screen.
constexpr double kPrintedFontSize = 8;
constexpr const char* kSaveTitle = "Saving the picture";

std::optional<PictureFormat> availableFormat(const std::string& path, const UserInterface& ui,
                                             const Platform& platform) {
    const std::optional<PictureFormat> format = pictureFormat(path, platform.language);
    const bool hasPdf = ui.pictures.hasPdf();
    if (format && (hasPdf || format != PictureFormat::Pdf))
        return format;
    ui.dialogs.message(
        hasPdf ? "The name must end in .svg, .png or .pdf." : "The name must end in .svg or .png.",
        Buttons::Ok);
    return std::nullopt;
}

std::optional<PictureSize> askForSize(Dialogs& dialogs) {
    const std::string initial =
        std::to_string(kPictureSize.width) + "x" + std::to_string(kPictureSize.height);
    const std::string text = dialogs.input(kSaveTitle, "Width and height in pixels:", initial);
    const std::optional<PictureSize> size = pictureSizeIn(text);
    if (!text.empty() && !size)
        dialogs.message(std::string("The size must be ") + kPictureSizes + ".", Buttons::Ok);
    return size;
}

}  // namespace

void savePicture(const Arrangement& arrangement, const UserInterface& ui,
                 const Platform& platform) {
    const std::string path = ui.dialogs.saveFile(
        kSaveTitle, ui.pictures.hasPdf() ? kPictureFileFilterWithPdf : kPictureFileFilter);
    if (path.empty())
        return;
    const std::optional<PictureFormat> format = availableFormat(path, ui, platform);
    if (!format)
        return;
    const std::optional<PictureSize> size =
        format == PictureFormat::Png ? askForSize(ui.dialogs) : kPictureSize;
    if (!size)
        return;
    const FileContent file{path, pictureFile(arrangement, *size, *format, ui.pictures)};
    writeWholeFiles(platform.files, {file});
}

void printPicture(const Arrangement& arrangement, const UserInterface& ui) {
    const auto widthOf = [&ui](std::string_view text) { return ui.pictures.widthOf(text); };
    ui.pictures.print(pictureTitle(arrangement), [&](Canvas& canvas, CanvasSize size) {
        draw(pictureScene(arrangement, size, kPrintedFontSize, widthOf), canvas);
    });
}

}  // namespace pelk
