#pragma once
// The network as files whose format follows from the ending of their name.

#include <string>
#include <vector>

#include "map/graph.h"
#include "platform/language.h"
#include "platform/whole_files.h"

namespace pelk {

/// The endings that `networkFiles` knows, for messages.
inline constexpr const char* kNetworkEndings = ".graphml, .gexf, .csv, .dot, .gv, .json or .vcf";

/// Returns the ending of a file's name in lower case, with the dot; empty when there is none.
std::string endingOf(const std::string& path, const Language& language);

/// Whether the ending of the path, in any case, names a format.
bool isNetworkFile(const std::string& path, const Language& language);

/// Returns the network in the format of the path's ending. CSV takes two files, whose names are
/// made from the path: NAME-nodes.csv and NAME-edges.csv. Requires: the ending names a format.
std::vector<FileContent> networkFiles(const Graph& graph, const std::string& path,
                                      const Language& language);

}  // namespace pelk
