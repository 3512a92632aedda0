#include "mailstore/discovery/key_file.h"

#include <algorithm>

namespace pelk {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos)
        return {};
    return std::string(text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1));
}

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

void addValue(KeySection& section, const std::string& line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos || line.starts_with('#') || line.starts_with(';'))
        return;
    const std::string key = trimmed(std::string_view(line).substr(0, equals));
    const std::string value = trimmed(std::string_view(line).substr(equals + 1));
    const std::size_t bracket = key.ends_with(']') ? key.find('[') : std::string::npos;
    if (bracket == std::string::npos)
        section.values[key] = value;
    else
        section.values.try_emplace(key.substr(0, bracket), value);
}

}  // namespace

std::string KeySection::value(const std::string& key) const {
    const auto found = values.find(key);
    return found == values.end() ? std::string() : found->second;
}

std::vector<KeySection> parseKeyFile(std::string_view text) {
    std::vector<KeySection> sections;
    while (!text.empty()) {
        const std::string line = trimmed(takeLine(text));
        if (line.starts_with('[') && line.ends_with(']'))
            sections.push_back({line.substr(1, line.size() - 2), {}});
        else if (!sections.empty())
            addValue(sections.back(), line);
    }
    return sections;
}

std::string valueIn(const std::vector<KeySection>& sections, std::string_view section,
                    const std::string& key) {
    const auto found = std::find_if(sections.begin(), sections.end(),
                                    [&](const KeySection& one) { return one.name == section; });
    return found == sections.end() ? std::string() : found->value(key);
}

}  // namespace pelk
