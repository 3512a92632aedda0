// Fuzzes the files and pictures of the network in a plain document.

#include <algorithm>
#include <cmath>

#include "fuzz/fuzz.h"
#include "map/graph_files.h"
#include "map/scene.h"
#include "map/svg.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

void requireXml(const std::string& text) {
    require(createPugiDocument()->loadXml(text), "a file is well-formed XML", text);
}

std::size_t countOf(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + part.size()))
        ++count;
    return count;
}

/// Requires that every text in quotation marks ends. A backslash escapes the next character.
void requireQuotes(std::string_view text) {
    bool isInside = false;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (isInside && text[at] == '\\')
            ++at;
        else if (text[at] == '"')
            isInside = !isInside;
        else
            require(!isInside || static_cast<unsigned char>(text[at]) >= ' ',
                    "a text has no control characters", text);
    require(!isInside, "every text ends", text);
}

void requireTable(const std::string& csv, std::size_t rows) {
    require(isXmlText(csv), "a table is text", csv);
    require(countOf(csv, "\r\n") == rows + 1 && countOf(csv, "\n") == rows + 1,
            "a table has one line for each row", csv);
    require(countOf(csv, "\"") % 2 == 0, "every quoted value ends", csv);
}

void requireCards(const std::string& cards, std::size_t people) {
    require(isXmlText(cards), "cards are text", cards);
    require(countOf(cards, "BEGIN:VCARD\r\n") >= people &&
                countOf("\r\n" + cards, "\r\nBEGIN:VCARD\r\n") == people &&
                countOf("\r\n" + cards, "\r\nEND:VCARD\r\n") == people,
            "there is a card for each person", cards);
    for (std::size_t begin = 0; begin < cards.size();) {
        const std::size_t end = cards.find("\r\n", begin);
        require(end != std::string::npos && end - begin <= 75, "lines are short", cards);
        begin = end + 2;
    }
}

void requireFiles(const Graph& graph) {
    const Groups groups = findGroups(graph);
    require(groups.size() == graph.people.size(), "everybody is in a group");
    requireXml(graphMlOf(graph, groups));
    requireXml(gexfOf(graph, groups));
    requireQuotes(dotOf(graph, groups));
    requireQuotes(nodeLinkJsonOf(graph, groups));
    requireTable(nodesCsvOf(graph, groups), graph.people.size());
    requireTable(edgesCsvOf(graph), graph.links.size());
    requireCards(vCardsOf(graph), graph.people.size());
}

void requirePicture(const Arrangement& arrangement) {
    for (const Point& position : arrangement.positions)
        require(std::isfinite(position.x) && std::isfinite(position.y), "a position is finite");
    SceneStyle style;
    style.hasLegend = true;
    style.title = "Network";
    const SceneView view = viewOfAll(arrangement, 800, 600, style);
    requireXml(svgOf(makeScene(arrangement, view, style)));
}

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pelk;
    const std::unique_ptr<Database> database = openDocument(textOf(data, size));
    if (!database)
        return 0;
    const Graph graph = makeGraph(*database, {});
    requireFiles(graph);
    requirePicture(arrangeCommunity(graph));
    if (!graph.people.empty())
        requirePicture(arrangeCircle(makeCircle(*database, graph.people.front().contact.id, {})));
    return 0;
}
