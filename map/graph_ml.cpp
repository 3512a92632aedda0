#include "map/graph_files.h"
#include "map/markup_text.h"
#include "map/plain_number.h"

namespace pelk {
namespace {

std::string key(const char* name, const char* of, const char* type) {
    return std::string("<key id=\"") + of + '-' + name + "\" for=\"" + of + "\" attr.name=\"" +
           name + "\" attr.type=\"" + type + "\"/>\n";
}

std::string data(const char* of, const char* name, const std::string& value) {
    return std::string("<data key=\"") + of + '-' + name + "\">" + value + "</data>";
}

std::string node(const GraphPerson& person, std::uint32_t group) {
    const Contact& contact = person.contact;
    const std::string label = markupText(labelOf(contact));
    return "<node id=\"n" + std::to_string(contact.id) + "\">" + data("node", "label", label) +
           data("node", "name", label) + data("node", "email", markupText(addressOf(contact))) +
           data("node", "group", std::to_string(group + 1)) + "</node>\n";
}

std::string edge(std::size_t number, const GraphLink& link, const Graph& graph) {
    return "<edge id=\"e" + std::to_string(number) + "\" source=\"n" + idTextOf(graph, link.from) +
           "\" target=\"n" + idTextOf(graph, link.to) + "\">" +
           data("edge", "weight", plainNumber(link.weight)) +
           data("edge", "class", nameOf(link.strength)) + "</edge>\n";
}

}  // namespace

std::string graphMlOf(const Graph& graph, const Groups& groups) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<graphml xmlns=\"http://graphml.graphdrawing.org/xmlns\">\n" +
        key("label", "node", "string") + key("name", "node", "string") +
        key("email", "node", "string") + key("group", "node", "int") +
        key("weight", "edge", "double") + key("class", "edge", "string") +
        "<graph id=\"pelk\" edgedefault=\"undirected\">\n";
    for (std::size_t person = 0; person < graph.people.size(); ++person)
        text += node(graph.people[person], groups[person]);
    for (std::size_t link = 0; link < graph.links.size(); ++link)
        text += edge(link, graph.links[link], graph);
    return text + "</graph>\n</graphml>\n";
}

}  // namespace pelk
