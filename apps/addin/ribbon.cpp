#include "apps/addin/ribbon.h"

#include <algorithm>

#include "addin/product.h"
#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

std::string escaped(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '&')
            result += "&amp;";
        else if (letter == '<')
            result += "&lt;";
        else if (letter == '"')
            result += "&quot;";
        else
            result += letter;
    }
    return result;
}

std::string attribute(const char* name, std::string_view value) {
    return std::string(" ") + name + "=\"" + escaped(value) + "\"";
}

/// A ribbon id must not contain spaces.
std::string idOf(const Connect::Command& command) {
    std::string id = command.tag;
    std::replace(id.begin(), id.end(), ' ', '_');
    return id;
}

std::string buttonXml(const Connect::Command& command) {
    return "<button" + attribute("id", idOf(command)) + attribute("tag", command.tag) +
           attribute("label", command.caption) + attribute("screentip", command.caption) +
           attribute("supertip", command.description) +
           attribute("onAction", toUtf8(kRibbonCallback)) + "/>";
}

}  // namespace

std::string ribbonXml(std::span<const Connect::Command> commands) {
    std::string xml =
        "<customUI xmlns=\"http://schemas.microsoft.com/office/2009/07/customui\"><ribbon><tabs>"
        "<tab idMso=\"TabMail\"><group id=\"Pelk_group\"" +
        attribute("label", kProductName) + ">";
    for (const Connect::Command& command : commands)
        xml += buttonXml(command);
    return xml + "</group></tab></tabs></ribbon></customUI>";
}

}  // namespace pelk
