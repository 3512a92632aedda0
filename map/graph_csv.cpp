#include "map/graph_files.h"
#include "map/plain_number.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

/// Whether a spreadsheet computes a cell with this text. Spreadsheets for East Asian languages also
/// take the wide forms of these characters.
bool isFormula(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    for (const std::string_view start : {"=", "+", "-", "@", "＝", "＋", "－", "＠"})
        if (text.starts_with(start))
            return true;
    return false;
}

std::string cell(std::string_view text) {
    const std::string shown = displayText(text);
    std::string quoted = isFormula(shown) ? "\"'" : "\"";
    for (const char character : shown) {
        if (character == '"')
            quoted += '"';
        quoted += character;
    }
    return quoted + '"';
}

}  // namespace

std::string nodesCsvOf(const Graph& graph, const Groups& groups) {
    std::string text = "Id,Label,Email,Group\r\n";
    for (std::uint32_t person = 0; person < graph.people.size(); ++person) {
        const Contact& contact = graph.people[person].contact;
        text += idTextOf(graph, person) + ',' + cell(labelOf(contact)) + ',' +
                cell(addressOf(contact)) + ',' + std::to_string(groups[person] + 1) + "\r\n";
    }
    return text;
}

std::string edgesCsvOf(const Graph& graph) {
    std::string text = "Source,Target,Type,Weight,Class\r\n";
    for (const GraphLink& link : graph.links)
        text += idTextOf(graph, link.from) + ',' + idTextOf(graph, link.to) + ",Undirected," +
                plainNumber(link.weight) + ',' + nameOf(link.strength) + "\r\n";
    return text;
}

}  // namespace pelk
