// The core stays portable: its files include the standard library, the platform's interfaces and
// each other, along the arrows of docs/architecture.md, and nothing else. The room that reads mail
// knows of the program only the headers that are listed here.

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

/// The core folders, each with the other core folders whose headers it may include.
const std::map<std::string, std::set<std::string>> kArrows{
    {"platform", {}},
    {"db", {}},
    {"history", {"db"}},
    {"scan", {"history", "db"}},
    {"views", {"history", "db"}},
    {"maintenance", {"views", "history", "db"}},
    {"links", {"views", "db"}},
    {"map", {"views", "history", "db"}},
    {"addin", {"db", "history", "scan", "views", "maintenance", "links", "map"}},
};

/// Headers that `db/` and `platform/platform.h` must not include: the database returns or throws
/// what happened, and others tell the user.
const std::set<std::string> kUserInterface{
    "platform/controls.h", "platform/dialogs.h",        "platform/display.h",
    "platform/guard.h",    "platform/user_interface.h",
};

/// The headers that mailstore/imap/ may include besides its own, those that mailstore/ may include,
/// and the standard library.
const std::set<std::string> kImapIncludes{
    "arpa/inet.h",   "libetpan/libetpan.h", "netdb.h",       "netinet/in.h",
    "netinet/tcp.h", "openssl/crypto.h",    "openssl/err.h", "openssl/evp.h",
    "openssl/ssl.h", "openssl/x509v3.h",    "poll.h",        "sys/socket.h",
};

/// The headers that mailstore/ may include besides its own and the standard library.
const std::set<std::string> kMailstoreIncludes{
    "dirent.h",
    "fcntl.h",
    "gmime/gmime.h",
    "lzma.h",
    "platform/clock.h",
    "platform/error.h",
    "platform/mail_automation.h",
    "platform/mail_client.h",
    "platform/parallel.h",
    "sqlite3.h",
    "platform/utf8.h",
    "sys/stat.h",
    "sys/types.h",
    "unistd.h",
    "zlib.h",
    "zstd.h",
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

/// Returns the includes of the files in the folders of the core and of mailstore/.
std::vector<Include> allIncludes(const fs::path& root) {
    std::vector<std::string> folders{"mailstore", "mailstore/discovery", "mailstore/imap"};
    for (const auto& [folder, arrows] : kArrows)
        folders.push_back(folder);
    std::vector<Include> includes;
    for (const std::string& folder : folders)
        for (const fs::directory_entry& file : fs::directory_iterator(root / folder))
            if (file.path().extension() == ".h" || file.path().extension() == ".cpp")
                for (const Include& include : includesOf(root, file.path()))
                    includes.push_back(include);
    return includes;
}

/// Headers of the standard library have neither folder, nor ending, nor capitals.
bool isStandard(const Include& include) {
    return !include.quoted &&
           include.target.find_first_not_of("abcdefghijklmnopqrstuvwxyz_") == std::string::npos;
}

bool mayInclude(const Include& include) {
    const std::string from = include.from.substr(0, include.from.rfind('/'));
    const std::string to = include.target.substr(0, include.target.rfind('/'));
    if (isStandard(include))
        return true;
    if (from.starts_with("mailstore"))
        return to == from || to == "mailstore" || kMailstoreIncludes.contains(include.target) ||
               (from == "mailstore/imap" && kImapIncludes.contains(include.target));
    const bool tellsNobody = from == "db" || include.from == "platform/platform.h";
    if (!include.quoted || (tellsNobody && kUserInterface.contains(include.target)))
        return false;
    return to == from || to == "platform" || kArrows.at(from).contains(to);
}

TEST(Includes, stayInsideTheirBounds) {
    const std::vector<Include> includes = allIncludes(PELK_SOURCE_DIR);
    EXPECT_GT(includes.size(), 100U) << "the files were not found";
    for (const Include& include : includes)
        EXPECT_TRUE(mayInclude(include)) << include.from << " includes " << include.target;
}

TEST(Includes, goRoundInNoCircle) {
    std::map<std::string, std::set<std::string>> graph;
    for (const Include& include : allIncludes(PELK_SOURCE_DIR))
        if (include.quoted)
            graph[include.from].insert(include.target);
    // Removes files that include none of the remaining ones, until only circles and their users
    // remain.
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
          Include{"db/a.cpp", "platform/dialogs.h", true},
          Include{"platform/platform.h", "platform/dialogs.h", true},
          Include{"views/a.h", "scan/scanner.h", true},
          Include{"db/a.cpp", "platform/desktop/posix_files.h", true},
          Include{"platform/a.h", "db/database.h", true},
          Include{"db/a.cpp", "mailstore/mail_store.h", true},
          Include{"mailstore/a.cpp", "QString", false},
          Include{"mailstore/a.cpp", "mailstore/imap/imap_session.h", true},
          Include{"mailstore/a.cpp", "openssl/ssl.h", false},
          Include{"mailstore/imap/a.cpp", "db/numbers.h", true},
          Include{"mailstore/a.cpp", "db/numbers.h", true},
          Include{"mailstore/a.cpp", "platform/files.h", true}})
        EXPECT_FALSE(mayInclude(include)) << include.target;
}

}  // namespace
}  // namespace pelk
