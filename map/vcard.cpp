#include "map/graph_files.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

/// The longest line in bytes, without its end.
constexpr std::size_t kLongestLine = 75;

std::string escaped(std::string_view text) {
    std::string value;
    for (const char character : displayText(text)) {
        if (character == '\\' || character == ',' || character == ';')
            value += '\\';
        value += character;
    }
    return value;
}

/// Continues a long line in the next one after a space, and divides no character.
std::string folded(std::string_view line) {
    std::string text;
    std::size_t length = 0;
    while (!line.empty()) {
        const std::string_view before = line;
        takeCode(line);
        const std::string_view character = before.substr(0, before.size() - line.size());
        if (length + character.size() > kLongestLine) {
            text += "\r\n ";
            length = 1;
        }
        text += character;
        length += character.size();
    }
    return text + "\r\n";
}

}  // namespace

std::string vCardsOf(const Graph& graph) {
    std::string text;
    for (const GraphPerson& person : graph.people) {
        text += "BEGIN:VCARD\r\nVERSION:4.0\r\n" + folded("FN:" + escaped(labelOf(person.contact)));
        for (const std::string& address : person.contact.addresses)
            text += folded("EMAIL:" + escaped(address));
        text += "END:VCARD\r\n";
    }
    return text;
}

}  // namespace pelk
