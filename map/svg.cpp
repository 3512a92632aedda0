#include "map/svg.h"

#include "map/markup_text.h"
#include "map/plain_number.h"

namespace pelk {
namespace {

std::string attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + '"';
}

std::string attribute(const char* name, double value) {
    return attribute(name, plainNumber(value));
}

std::string textOf(const Color& color) {
    constexpr const char* digits = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned part : {color.red, color.green, color.blue}) {
        text += digits[part / 16];
        text += digits[part % 16];
    }
    return text;
}

std::string circle(const SceneCircle& circle) {
    return "<circle" + attribute("cx", circle.center.x) + attribute("cy", circle.center.y) +
           attribute("r", circle.radius);
}

std::string lines(const Scene& scene) {
    std::string svg = "<g stroke-linecap=\"round\">\n";
    for (const SceneLine& line : scene.lines)
        svg += "<line" + attribute("x1", line.from.x) + attribute("y1", line.from.y) +
               attribute("x2", line.to.x) + attribute("y2", line.to.y) +
               attribute("stroke", textOf(line.color)) + attribute("stroke-width", line.width) +
               attribute("stroke-opacity", line.opacity) + "/>\n";
    return svg + "</g>\n";
}

std::string circles(const Scene& scene) {
    std::string svg = "<g fill=\"none\"" + attribute("stroke", textOf(scene.ringColor)) +
                      attribute("stroke-opacity", 0.5) + ">\n";
    for (const SceneCircle& ring : scene.rings)
        svg += circle(ring) + "/>\n";
    svg += "</g>\n" + lines(scene) + "<g" + attribute("stroke", textOf(scene.background)) + ">\n";
    for (const SceneCircle& person : scene.circles)
        svg += circle(person) + attribute("fill", textOf(person.fill)) + "/>\n";
    return svg + "</g>\n";
}

std::string texts(const Scene& scene) {
    std::string svg = "<g font-family=\"sans-serif\"" + attribute("fill", textOf(scene.textColor)) +
                      attribute("stroke", textOf(scene.background)) +
                      " stroke-width=\"3\" stroke-linejoin=\"round\" paint-order=\"stroke\">\n";
    for (const SceneText& text : scene.texts)
        svg += "<text" + attribute("x", text.start.x) + attribute("y", text.start.y) +
               attribute("font-size", text.size) + (text.bold ? " font-weight=\"bold\"" : "") +
               ">" + markupText(text.text) + "</text>\n";
    return svg + "</g>\n";
}

}  // namespace

std::string svgOf(const Scene& scene) {
    const std::string size = attribute("width", scene.width) + attribute("height", scene.height);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
           size + " viewBox=\"0 0 " + plainNumber(scene.width) + ' ' + plainNumber(scene.height) +
           "\">\n<rect" + size + attribute("fill", textOf(scene.background)) + "/>\n" +
           circles(scene) + texts(scene) + "</svg>\n";
}

}  // namespace pelk
