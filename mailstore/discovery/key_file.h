#pragma once
// Settings in sections of `key=value` lines, as many desktop programs write them.

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

struct KeySection {
    std::string name;
    std::map<std::string, std::string> values;

    /// Returns the value of a key; empty text if the section does not have it.
    std::string value(const std::string& key) const;
};

/// Returns all sections in order. `key[mark]=value`, with a language or a flag of KDE in brackets,
/// counts as `key=value` if there is no line without brackets. Other lines are ignored.
std::vector<KeySection> parseKeyFile(std::string_view text);

/// Returns the value in the first section of that name; empty text if there is none.
std::string valueIn(const std::vector<KeySection>& sections, std::string_view section,
                    const std::string& key);

}  // namespace pelk
