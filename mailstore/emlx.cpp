#include "mailstore/emlx.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string>

#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::size_t kMaxLengthLine = 32;
// In bytes; a property list is some hundred bytes long.
constexpr std::size_t kMaxPropertyList = 64UL << 10;
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::int64_t kDeletedFlag = 1 << 1;

[[noreturn]] void failDamaged(const MailFile& file) {
    throw Error(file.path() +
                " cannot be read: the length in its first line does not match its content.");
}

std::string readText(const MailFile& file, std::uint64_t offset, std::size_t most) {
    const std::uint64_t left = file.size() - std::min(offset, file.size());
    std::string text(std::min<std::uint64_t>(most, left), '\0');
    text.resize(file.read(offset, text.data(), text.size()));
    return text;
}

/// Returns the position of the message. Its offset and length are those that the first line gives.
MessagePlace locate(const std::shared_ptr<const MailFile>& file) {
    const std::string line = readText(*file, 0, kMaxLengthLine);
    MessagePlace place{file};
    const char* const end = line.data() + line.size();
    const auto [digitsEnd, error] = std::from_chars(line.data(), end, place.length);
    const char* const lineEnd = std::find_if(digitsEnd, end, [](char c) { return c != ' '; });
    if (error != std::errc() || lineEnd == end || *lineEnd != '\n')
        failDamaged(*file);
    place.offset = static_cast<std::uint64_t>(lineEnd - line.data()) + 1;
    if (place.length > file->size() - place.offset)
        failDamaged(*file);
    return place;
}

/// Returns the text after the message, from its first character that is not blank.
std::string readPropertyList(const MessagePlace& place) {
    const std::string text = readText(*place.file, place.offset + place.length, kMaxPropertyList);
    std::string list = text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
    for (const std::string_view start : {"<?xml", "<!DOCTYPE plist", "<plist"})
        if (list.starts_with(start))
            return list;
    if (!list.empty())
        failDamaged(*place.file);
    return list;
}

/// Returns the number of that name in the property list, rounded down.
std::optional<std::int64_t> numberOf(std::string_view list, std::string_view name) {
    const std::string key = "<key>" + std::string(name) + "</key>";
    const std::size_t at = list.find(key);
    if (at == std::string_view::npos)
        return std::nullopt;
    list.remove_prefix(at + key.size());
    list.remove_prefix(std::min(list.find_first_not_of(kBlanks), list.size()));
    for (const std::string_view tag : {"<integer>", "<real>"}) {
        std::int64_t value = 0;
        if (list.starts_with(tag) &&
            std::from_chars(list.data() + tag.size(), list.data() + list.size(), value).ec ==
                std::errc())
            return value;
    }
    return std::nullopt;
}

}  // namespace

Emlx readEmlx(const std::shared_ptr<const MailFile>& file) {
    Emlx emlx{locate(file), {}, false};
    const std::string list = readPropertyList(emlx.message);
    emlx.received.seconds = numberOf(list, "date-received").value_or(kNoTime);
    emlx.deleted = (numberOf(list, "flags").value_or(0) & kDeletedFlag) != 0;
    return emlx;
}

}  // namespace pelk
