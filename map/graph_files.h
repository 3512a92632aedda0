#pragma once
// The network in the formats of other programs, as text in UTF-8.
//
// Names and addresses come from strangers: each becomes one line without control characters and
// changes of the writing direction, and is escaped by the rules of its format. People are called by
// the ids of their contacts. Groups are numbered from 1, the largest first. The weight of a link is
// its number of e-mails.

#include <string>

#include "map/graph.h"
#include "map/groups.h"

namespace pelk {

/// GraphML (Brandes, Eiglsperger, Herman, Himsolt and Marshall, "GraphML progress report",
/// Graph Drawing 2001).
std::string graphMlOf(const Graph& graph, const Groups& groups);

/// GEXF 1.3 (https://gexf.net/).
std::string gexfOf(const Graph& graph, const Groups& groups);

/// The two tables that programs for networks import, as CSV (RFC 4180). A text that a spreadsheet
/// would take for a formula starts with an apostrophe.
std::string nodesCsvOf(const Graph& graph, const Groups& groups);
std::string edgesCsvOf(const Graph& graph);

/// The language of Graphviz (https://graphviz.org/doc/info/lang.html).
std::string dotOf(const Graph& graph, const Groups& groups);

/// The node-link form of NetworkX and D3.
std::string nodeLinkJsonOf(const Graph& graph, const Groups& groups);

/// The people alone, as vCards (RFC 6350).
std::string vCardsOf(const Graph& graph);

}  // namespace pelk
