#include "map/graph_files.h"
#include "map/plain_number.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

std::string quoted(std::string_view text) {
    std::string escaped = "\"";
    for (const char character : displayText(text)) {
        if (character == '"' || character == '\\')
            escaped += '\\';
        escaped += character;
    }
    return escaped + '"';
}

std::string node(const GraphPerson& person, std::uint32_t group) {
    const std::string label = quoted(labelOf(person.contact));
    return "{\"id\": " + std::to_string(person.contact.id) + ", \"label\": " + label +
           ", \"name\": " + label + ", \"email\": " + quoted(addressOf(person.contact)) +
           ", \"group\": " + std::to_string(group + 1) + "}";
}

std::string edge(const GraphLink& link, const Graph& graph) {
    return "{\"source\": " + idTextOf(graph, link.from) +
           ", \"target\": " + idTextOf(graph, link.to) +
           ", \"weight\": " + plainNumber(link.weight) + ", \"class\": \"" + nameOf(link.strength) +
           "\"}";
}

const char* separatorBefore(std::size_t position) {
    return position == 0 ? "\n" : ",\n";
}

}  // namespace

std::string nodeLinkJsonOf(const Graph& graph, const Groups& groups) {
    std::string text = "{\"directed\": false, \"multigraph\": false, \"graph\": {},\n\"nodes\": [";
    for (std::size_t person = 0; person < graph.people.size(); ++person)
        text += separatorBefore(person) + node(graph.people[person], groups[person]);
    text += "],\n\"links\": [";
    for (std::size_t link = 0; link < graph.links.size(); ++link)
        text += separatorBefore(link) + edge(graph.links[link], graph);
    return text + "]}\n";
}

}  // namespace pelk
