#include "map/markup_text.h"

#include "platform/utf8.h"

namespace pelk {

std::string markupText(std::string_view text) {
    std::string escaped;
    for (const char character : displayText(text)) {
        if (character == '&')
            escaped += "&amp;";
        else if (character == '<')
            escaped += "&lt;";
        else if (character == '>')
            escaped += "&gt;";
        else if (character == '"')
            escaped += "&quot;";
        else if (character == '\'')
            escaped += "&#39;";
        else
            escaped += character;
    }
    return escaped;
}

}  // namespace pelk
