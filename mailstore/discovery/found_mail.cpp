#include "mailstore/discovery/found_mail.h"

#include <sys/stat.h>

#include <cerrno>

#include "mailstore/mail_file.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::uint64_t kLargestSettings = 16 << 20;

}  // namespace

bool isAbsent(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

void lookInto(MailList& list, const std::string& program, const std::string& path,
              const std::function<void()>& look) {
    if (isAbsent(path))
        return;
    try {
        look();
    } catch (const Error& error) {
        list.push_back({program, {}, path, error.what(), {}});
    }
}

std::string readSettingsFile(const std::string& path) {
    const auto file = MailFile::open(path);
    if (file->size() > kLargestSettings)
        throw Error(path + " cannot be read: it is too large for settings.");
    std::string text(static_cast<std::size_t>(file->size()), '\0');
    text.resize(file->read(0, text.data(), text.size()));
    return text;
}

}  // namespace pelk
