#include <algorithm>
#include <cmath>

#include "map/graph_files.h"
#include "map/plain_number.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

constexpr double kThinnest = 0.5;
constexpr double kWidest = 6;

/// Graphviz reads escapes such as \n in labels, and also references such as &lt;.
std::string quoted(std::string_view text) {
    std::string escaped = "\"";
    for (const char character : displayText(text)) {
        if (character == '"' || character == '\\')
            escaped += '\\';
        escaped += character;
        if (character == '&')
            escaped += "amp;";
    }
    return escaped + '"';
}

}  // namespace

std::string dotOf(const Graph& graph, const Groups& groups) {
    double strongest = 1;
    for (const GraphLink& link : graph.links)
        strongest = std::max(strongest, link.weight);
    std::string text = "graph pelk {\n";
    for (std::uint32_t person = 0; person < graph.people.size(); ++person) {
        const Contact& contact = graph.people[person].contact;
        text += idTextOf(graph, person) + " [label=" + quoted(labelOf(contact)) +
                ", email=" + quoted(addressOf(contact)) +
                ", group=" + std::to_string(groups[person] + 1) + "];\n";
    }
    for (const GraphLink& link : graph.links)
        text +=
            idTextOf(graph, link.from) + " -- " + idTextOf(graph, link.to) +
            " [weight=" + plainNumber(link.weight) + ", penwidth=" +
            plainNumber(kThinnest + (kWidest - kThinnest) * std::sqrt(link.weight / strongest)) +
            ", class=" + nameOf(link.strength) + "];\n";
    return text + "}\n";
}

}  // namespace pelk
