#include "map/network_files.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "map/graph_files.h"

namespace pelk {
namespace {

using Files = std::vector<FileContent>;

/// Returns one file, whose content `Write` makes.
template <std::string (*Write)(const Graph&, const Groups&)>
Files oneFile(const std::string& stem, const std::string& ending, const Graph& graph,
              const Groups& groups) {
    return {{stem + ending, Write(graph, groups)}};
}

std::string contactsOf(const Graph& graph, const Groups&) {
    return vCardsOf(graph);
}

Files twoTables(const std::string& stem, const std::string& ending, const Graph& graph,
                const Groups& groups) {
    return {{stem + "-nodes" + ending, nodesCsvOf(graph, groups)},
            {stem + "-edges" + ending, edgesCsvOf(graph)}};
}

struct NetworkFormat {
    std::string_view ending;
    Files (*write)(const std::string& stem, const std::string& ending, const Graph& graph,
                   const Groups& groups);
};

constexpr std::array kFormats{
    NetworkFormat{".graphml", oneFile<graphMlOf>},
    NetworkFormat{".gexf", oneFile<gexfOf>},
    NetworkFormat{".csv", twoTables},
    NetworkFormat{".dot", oneFile<dotOf>},
    NetworkFormat{".gv", oneFile<dotOf>},
    NetworkFormat{".json", oneFile<nodeLinkJsonOf>},
    NetworkFormat{".vcf", oneFile<contactsOf>},
};

const NetworkFormat* formatOf(const std::string& ending) {
    const auto* const found =
        std::find_if(kFormats.begin(), kFormats.end(),
                     [&ending](const NetworkFormat& known) { return known.ending == ending; });
    return found == kFormats.end() ? nullptr : found;
}

}  // namespace

std::string endingOf(const std::string& path, const Language& language) {
    const std::size_t dot = path.find_last_of("./\\");
    return dot == std::string::npos || path[dot] != '.' ? "" : language.lowerCase(path.substr(dot));
}

bool isNetworkFile(const std::string& path, const Language& language) {
    return formatOf(endingOf(path, language)) != nullptr;
}

std::vector<FileContent> networkFiles(const Graph& graph, const std::string& path,
                                      const Language& language) {
    const std::string ending = endingOf(path, language);
    const std::size_t stem = path.size() - ending.size();
    return formatOf(ending)->write(path.substr(0, stem), path.substr(stem), graph,
                                   findGroups(graph));
}

}  // namespace pelk
