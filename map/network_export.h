#pragma once
// Exports the network from a form.

#include <string>
#include <unordered_set>

#include "db/database.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace pelk {

/// The kinds of files that `exportNetwork` offers.
inline constexpr const char* kNetworkFileFilter =
    "GraphML, for most programs (*.graphml)|*.graphml|GEXF, for Gephi (*.gexf)|*.gexf|"
    "Tables of nodes and edges (*.csv)|*.csv|Graphviz (*.dot)|*.dot|JSON (*.json)|*.json|"
    "Contacts as vCards (*.vcf)|*.vcf";

/// Asks for a file, and writes all contacts but the `hidden` ones with the relations between them
/// in the format of its ending. Asks before it replaces a file that the user has not named. Returns
/// what was done and where; empty when the user cancels. Throws `Error` with the old files intact.
std::string exportNetwork(const Database& database, const std::unordered_set<int>& hidden,
                          Dialogs& dialogs, const Platform& platform);

}  // namespace pelk
