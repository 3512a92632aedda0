#include "bench/gmime_loop.h"

#include <dirent.h>
#include <fcntl.h>
#include <gmime/gmime.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>
#include <vector>

namespace pelk {
namespace {

constexpr std::size_t kBlock = 1UL << 20;
constexpr std::array<std::string_view, 5> kPeopleFields = {
    "From:", "Reply-To:", "To:", "Cc:", "Bcc:"};
constexpr std::string_view kDateField = "Date:";

bool startsWith(std::string_view line, std::string_view name) {
    return line.size() >= name.size() && ::strncasecmp(line.data(), name.data(), name.size()) == 0;
}

std::size_t countPeople(InternetAddressList* list) {
    std::size_t count = 0;
    for (int i = 0; i < internet_address_list_length(list); ++i) {
        InternetAddress* const address = internet_address_list_get_address(list, i);
        count +=
            INTERNET_ADDRESS_IS_GROUP(address)
                ? countPeople(internet_address_group_get_members(INTERNET_ADDRESS_GROUP(address)))
                : 1;
    }
    return count;
}

std::size_t decodeField(const std::string& field) {
    if (startsWith(field, kDateField)) {
        if (GDateTime* const time =
                g_mime_utils_header_decode_date(field.c_str() + kDateField.size()))
            g_date_time_unref(time);
        return 0;
    }
    for (const std::string_view name : kPeopleFields) {
        if (!startsWith(field, name))
            continue;
        InternetAddressList* const list =
            internet_address_list_parse(nullptr, field.c_str() + name.size());
        if (list == nullptr)
            return 0;
        const std::size_t count = countPeople(list);
        g_object_unref(list);
        return count;
    }
    return 0;
}

std::size_t decodeMessage(std::string_view message) {
    std::size_t people = 0;
    std::string field;
    while (true) {
        const std::string_view line = message.substr(0, message.find('\n'));
        if (!line.starts_with(' ') && !line.starts_with('\t')) {
            people += decodeField(field);
            field.clear();
        }
        if (line.empty())
            return people;
        field += line;
        message.remove_prefix(std::min(line.size() + 1, message.size()));
    }
}

std::size_t forEachFile(const std::string& directory,
                        const std::function<std::size_t(std::string_view)>& work) {
    std::size_t sum = 0;
    std::vector<char> bytes(kBlock);
    DIR* const opened = ::opendir(directory.c_str());
    while (const dirent* const entry = ::readdir(opened)) {
        if (entry->d_name[0] == '.')
            continue;
        const int file = ::openat(::dirfd(opened), entry->d_name, O_RDONLY | O_CLOEXEC);
        std::size_t size = 0;
        while (const ssize_t got = ::read(file, bytes.data() + size, bytes.size() - size))
            size += static_cast<std::size_t>(got);
        ::close(file);
        sum += work({bytes.data(), size});
    }
    ::closedir(opened);
    return sum;
}

}  // namespace

std::size_t decodeMbox(const std::string& path) {
    constexpr std::string_view kSeparator = "\n\nFrom ";
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::vector<char> bytes(kBlock);
    std::size_t people = 0;
    std::size_t kept = 0;
    while (const ssize_t got = ::read(file, bytes.data() + kept, bytes.size() - kept)) {
        std::string_view text(bytes.data(), kept + static_cast<std::size_t>(got));
        while (const void* const found =
                   ::memmem(text.data(), text.size(), kSeparator.data(), kSeparator.size())) {
            const std::size_t end =
                static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
            people += decodeMessage(text.substr(0, end + 2));
            text.remove_prefix(end + 2);
        }
        std::copy(text.begin(), text.end(), bytes.begin());
        kept = text.size();
    }
    ::close(file);
    return people + decodeMessage({bytes.data(), kept});
}

std::size_t readFiles(const std::string& directory) {
    return forEachFile(directory, [](std::string_view text) { return text.size(); });
}

std::size_t decodeFiles(const std::string& directory) {
    return forEachFile(directory, decodeMessage);
}

}  // namespace pelk
