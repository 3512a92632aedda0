#include "map/graph_files.h"
#include "map/markup_text.h"
#include "map/plain_number.h"

namespace pelk {
namespace {

std::string declared(const char* name, const char* type) {
    return std::string("<attribute id=\"") + name + "\" title=\"" + name + "\" type=\"" + type +
           "\"/>";
}

std::string value(const char* name, const std::string& text) {
    return std::string("<attvalue for=\"") + name + "\" value=\"" + text + "\"/>";
}

std::string node(const GraphPerson& person, std::uint32_t group) {
    return "<node id=\"" + std::to_string(person.contact.id) + "\" label=\"" +
           markupText(labelOf(person.contact)) + "\"><attvalues>" +
           value("email", markupText(addressOf(person.contact))) +
           value("group", std::to_string(group + 1)) + "</attvalues></node>\n";
}

std::string edge(std::size_t number, const GraphLink& link, const Graph& graph) {
    return "<edge id=\"" + std::to_string(number) + "\" source=\"" + idTextOf(graph, link.from) +
           "\" target=\"" + idTextOf(graph, link.to) + "\" weight=\"" + plainNumber(link.weight) +
           "\"><attvalues>" + value("class", nameOf(link.strength)) + "</attvalues></edge>\n";
}

}  // namespace

std::string gexfOf(const Graph& graph, const Groups& groups) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<gexf xmlns=\"http://gexf.net/1.3\" version=\"1.3\">\n"
        "<graph defaultedgetype=\"undirected\" mode=\"static\">\n"
        "<attributes class=\"node\">" +
        declared("email", "string") + declared("group", "integer") +
        "</attributes>\n<attributes class=\"edge\">" + declared("class", "string") +
        "</attributes>\n<nodes>\n";
    for (std::size_t person = 0; person < graph.people.size(); ++person)
        text += node(graph.people[person], groups[person]);
    text += "</nodes>\n<edges>\n";
    for (std::size_t link = 0; link < graph.links.size(); ++link)
        text += edge(link, graph.links[link], graph);
    return text + "</edges>\n</graph>\n</gexf>\n";
}

}  // namespace pelk
