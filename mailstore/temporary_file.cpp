#include "mailstore/temporary_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/error.h"

namespace pelk {

std::string temporaryDirectory() {
    const char* const named = std::getenv("TMPDIR");
    if (named != nullptr && *named != '\0')
        return named;
    return ::access("/var/tmp", W_OK | X_OK) == 0 ? "/var/tmp" : "/tmp";
}

int openTemporaryFile() {
    const std::string directory = temporaryDirectory();
    const int unnamed = ::open(directory.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (unnamed >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != ENOENT))
        return unnamed;
    // The file system has no unnamed files.
    std::string name = directory + "/pelk-XXXXXX";
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor >= 0)
        ::unlink(name.c_str());
    return descriptor;
}

bool writeAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t count = ::write(descriptor, content.data(), content.size());
        if (count < 0 && errno != EINTR)
            return false;
        content.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return true;
}

TemporaryDirectory::TemporaryDirectory() : path_(temporaryDirectory() + "/pelk-XXXXXX") {
    if (::mkdtemp(path_.data()) == nullptr)
        throw Error("No directory can be created in " + temporaryDirectory() + ": " +
                    std::generic_category().message(errno) + ".");
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

}  // namespace pelk
