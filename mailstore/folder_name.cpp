#include "mailstore/folder_name.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "mailstore/gmime_ready.h"

namespace pelk {
namespace {

/// Decodes a run of modified base64 to UTF-8. Returns nothing if it is invalid.
std::optional<std::string> decodeRun(std::string run) {
    std::replace(run.begin(), run.end(), ',', '/');
    run.append((4 - run.size() % 4) % 4, '=');
    gsize length = 0;
    const GText bytes(reinterpret_cast<char*>(g_base64_decode(run.c_str(), &length)));
    const GText text(g_convert(bytes.get(), static_cast<gssize>(length), "UTF-8", "UTF-16BE",
                               nullptr, nullptr, nullptr));
    return text && length > 0 ? std::optional<std::string>(text.get()) : std::nullopt;
}

}  // namespace

std::optional<std::string> companionOwner(std::string_view name) {
    constexpr std::string_view kThunderbirdEnding = ".sbd";
    constexpr std::string_view kKMailEnding = ".directory";
    const bool hidden = name.starts_with('.');
    const std::string_view ending = hidden ? kKMailEnding : kThunderbirdEnding;
    if (hidden)
        name.remove_prefix(1);
    if (name.size() <= ending.size() || !name.ends_with(ending))
        return std::nullopt;
    name.remove_suffix(ending.size());
    return std::string(name);
}

std::vector<std::string> companionNames(const std::string& owner) {
    return {owner + ".sbd", "." + owner + ".directory"};
}

std::vector<std::string> splitMaildirName(std::string_view fileName) {
    const std::string_view whole = fileName.substr(1);
    std::vector<std::string> names;
    std::size_t begin = 0;
    if (whole.starts_with('.')) {
        names.emplace_back("Inbox");
        begin = 1;
    }
    while (begin <= whole.size()) {
        const std::size_t end = std::min(whole.find('.', begin), whole.size());
        names.emplace_back(whole.substr(begin, end - begin));
        if (names.back().empty())
            return {std::string(whole)};
        begin = end + 1;
    }
    return names;
}

std::string decodeEscapedName(std::string_view name) {
    std::string result;
    while (!name.empty()) {
        unsigned char code = 0;
        const char* const digits = name.data() + 1;
        const bool escaped = name.size() > 2 && name.front() == '_' &&
                             std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2;
        result += escaped ? static_cast<char>(code) : name.front();
        name.remove_prefix(escaped ? 3 : 1);
    }
    return result;
}

std::optional<std::string_view> maildirFlags(std::string_view fileName) {
    const std::size_t mark = fileName.find_last_of(":;!");
    if (mark == std::string_view::npos || !fileName.substr(mark + 1).starts_with("2,"))
        return std::nullopt;
    return fileName.substr(mark + 3);
}

std::string decodeModifiedUtf7(std::string_view name) {
    std::string result;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] != '&') {
            result += name[i];
            continue;
        }
        const std::size_t end = name.find('-', i);
        if (end == std::string_view::npos)
            return std::string(name);
        const auto run = end == i + 1 ? std::optional<std::string>("&")
                                      : decodeRun(std::string(name.substr(i + 1, end - i - 1)));
        if (!run)
            return std::string(name);
        result += *run;
        i = end;
    }
    return result;
}

}  // namespace pelk
