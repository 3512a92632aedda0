// The core stays portable: its files include the standard library, the platform's interfaces and
// each other, along the arrows of docs/architecture.md, and nothing else.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace pelk {
namespace {

namespace fs = std::filesystem;

/// The core folders, each with the core folders whose headers it may include beside its own.
const std::map<std::string, std::set<std::string>> kArrows{
    {"platform", {}},
    {"db", {}},
    {"scan", {"db"}},
    {"views", {"db"}},
    {"maintenance", {"views", "db"}},
    {"links", {"views", "db"}},
    {"addin", {"db", "scan", "views", "maintenance", "links"}},
};

struct Include {
    std::string from;
    std::string target;
    bool quoted = false;
};

std::vector<Include> includesOf(const fs::path& root, const fs::path& file) {
    const std::string directive = "#include ";
    std::vector<Include> includes;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (!line.starts_with(directive))
            continue;
        const bool quoted = line[directive.size()] == '"';
        const std::size_t start = directive.size() + 1;
        const std::size_t end = line.find(quoted ? '"' : '>', start);
        includes.push_back(
            {fs::relative(file, root).string(), line.substr(start, end - start), quoted});
    }
    return includes;
}

/// The includes of the files that stand directly in the folders of the core.
std::vector<Include> coreIncludes(const fs::path& root) {
    std::vector<Include> includes;
    for (const auto& [folder, arrows] : kArrows)
        for (const fs::directory_entry& file : fs::directory_iterator(root / folder))
            if (file.path().extension() == ".h" || file.path().extension() == ".cpp")
                for (const Include& include : includesOf(root, file.path()))
                    includes.push_back(include);
    return includes;
}

/// Headers of the standard library have neither folder, nor ending, nor capitals.
bool mayInclude(const Include& include) {
    if (!include.quoted)
        return include.target.find_first_not_of("abcdefghijklmnopqrstuvwxyz_") == std::string::npos;
    const std::string from = include.from.substr(0, include.from.find('/'));
    const std::string to = include.target.substr(0, include.target.rfind('/'));
    return to == from || to == "platform" || kArrows.at(from).contains(to);
}

TEST(Includes, ofTheCoreStayInsideItsBounds) {
    const std::vector<Include> includes = coreIncludes(PELK_SOURCE_DIR);
    EXPECT_GT(includes.size(), 100U) << "the files of the core were not found";
    for (const Include& include : includes)
        EXPECT_TRUE(mayInclude(include)) << include.from << " includes " << include.target;
}

TEST(Includes, goRoundInNoCircle) {
    std::map<std::string, std::set<std::string>> graph;
    for (const Include& include : coreIncludes(PELK_SOURCE_DIR))
        if (include.quoted)
            graph[include.from].insert(include.target);
    // What includes nothing that is left is taken out, until only circles and their users are left.
    const auto isFree = [&graph](const auto& file) {
        return std::none_of(file.second.begin(), file.second.end(),
                            [&graph](const std::string& target) { return graph.contains(target); });
    };
    while (std::erase_if(graph, isFree) != 0) {
    }
    for (const auto& [file, targets] : graph)
        ADD_FAILURE() << file << " is part of a circle or includes one";
}

TEST(Includes, areToldApart) {
    for (const Include& include :
         {Include{"db/a.cpp", "QString", false}, Include{"db/a.cpp", "pugixml.hpp", false},
          Include{"db/a.cpp", "sys/stat.h", false}, Include{"db/a.cpp", "views/strength.h", true},
          Include{"views/a.h", "scan/scanner.h", true},
          Include{"db/a.cpp", "platform/desktop/posix_files.h", true},
          Include{"platform/a.h", "db/database.h", true}})
        EXPECT_FALSE(mayInclude(include)) << include.target;
}

}  // namespace
}  // namespace pelk
