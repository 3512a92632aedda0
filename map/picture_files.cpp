#include "map/picture_files.h"

#include <algorithm>
#include <cmath>

#include "db/numbers.h"
#include "map/draw_scene.h"
#include "map/network_files.h"
#include "map/svg.h"

namespace pelk {
namespace {

constexpr int kSmallestSide = 100;
constexpr int kLargestSide = 20000;
constexpr double kFontSize = 12;
/// A picture that is at least so many times as wide as its font is large has room for the list of
/// groups.
constexpr double kLegendFrom = 66;

CanvasSize onCanvas(PictureSize size) {
    return {static_cast<double>(size.width), static_cast<double>(size.height)};
}

}  // namespace

std::optional<PictureFormat> pictureFormat(const std::string& path, const Language& language) {
    const std::string ending = endingOf(path, language);
    if (ending == ".svg")
        return PictureFormat::Svg;
    if (ending == ".png")
        return PictureFormat::Png;
    return ending == ".pdf" ? std::optional(PictureFormat::Pdf) : std::nullopt;
}

std::optional<PictureSize> pictureSizeIn(const std::string& text) {
    const std::size_t cross = text.find('x');
    if (cross == std::string::npos)
        return std::nullopt;
    const std::optional<int> width = wholeNumber(text.substr(0, cross), kLargestSide);
    const std::optional<int> height = wholeNumber(text.substr(cross + 1), kLargestSide);
    if (width < kSmallestSide || height < kSmallestSide)
        return std::nullopt;
    return PictureSize{*width, *height};
}

std::string pictureTitle(const Arrangement& arrangement) {
    const std::vector<GraphPerson>& people = arrangement.graph.people;
    if (!arrangement.isCircle)
        return std::to_string(people.size()) + " people, grouped by their e-mails";
    const std::string name = labelOf(people[0].contact);
    if (people.size() <= 2)
        return people.size() == 1 ? name : name + " and the person nearest by e-mail";
    return name + " and the " + std::to_string(people.size() - 1) + " people nearest by e-mail";
}

Scene pictureScene(const Arrangement& arrangement, CanvasSize size, double fontSize,
                   const TextWidth& textWidth) {
    // A larger picture has larger texts, and also more of them.
    const double scale =
        std::min(size.width / kPictureSize.width, size.height / kPictureSize.height);
    SceneStyle style;
    style.fontSize = fontSize * std::sqrt(std::max(1.0, scale));
    style.textWidth = textWidth;
    style.title = pictureTitle(arrangement);
    style.hasLegend = size.width >= kLegendFrom * fontSize;
    return makeScene(arrangement, viewOfAll(arrangement, size.width, size.height, style), style);
}

std::string pictureFile(const Arrangement& arrangement, PictureSize size, PictureFormat format,
                        PictureOutput& pictures) {
    if (format == PictureFormat::Svg)
        return svgOf(pictureScene(arrangement, onCanvas(size), kFontSize, estimatedWidth));
    const DrawPicture drawAll = [&](Canvas& canvas, CanvasSize whole) {
        draw(pictureScene(arrangement, whole, kFontSize,
                          [&](std::string_view text) { return pictures.widthOf(text); }),
             canvas);
    };
    return format == PictureFormat::Png ? pictures.png(onCanvas(size), drawAll)
                                        : pictures.pdf(onCanvas(size), drawAll);
}

}  // namespace pelk
