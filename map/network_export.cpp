#include "map/network_export.h"

#include "map/network_files.h"
#include "views/deletion_text.h"

namespace pelk {
namespace {

/// Returns those files that exist under names which the user did not choose.
std::string unaskedFiles(const std::vector<FileContent>& files, const std::string& chosen,
                         FileSystem& system) {
    std::string unasked;
    for (const FileContent& file : files)
        if (file.path != chosen && system.fileExists(file.path))
            unasked += (unasked.empty() ? "" : "\n") + file.path;
    return unasked;
}

std::string doneText(const Graph& graph, const std::vector<FileContent>& files) {
    std::string text = "Exported " + sizeText(graph.people.size(), graph.links.size()) + " to";
    for (const FileContent& file : files)
        text += "\n" + file.path;
    return text;
}

}  // namespace

std::string exportNetwork(const Database& database, const std::unordered_set<int>& hidden,
                          Dialogs& dialogs, const Platform& platform) {
    const std::string path = dialogs.saveFile("Exporting the network", kNetworkFileFilter);
    if (path.empty())
        return {};
    if (!isNetworkFile(path, platform.language)) {
        dialogs.message(std::string("The name must end in ") + kNetworkEndings + ".", Buttons::Ok);
        return {};
    }
    const Graph graph = makeGraph(database, {Strength::Weak, {}, hidden});
    const std::vector<FileContent> files = networkFiles(graph, path, platform.language);
    const std::string unasked = unaskedFiles(files, path, platform.files);
    if (!unasked.empty() && !dialogs.confirm("Do you want to replace these files?", unasked))
        return {};
    writeWholeFiles(platform.files, files);
    return doneText(graph, files);
}

}  // namespace pelk
