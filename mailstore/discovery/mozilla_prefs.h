#pragma once
// The settings in `prefs.js` of Thunderbird and its relatives: lines `user_pref("name", value);`.

#include <map>
#include <string>
#include <string_view>

namespace pelk {

using MozillaPrefs = std::map<std::string, std::string, std::less<>>;

/// Returns the values of the settings whose names begin with `prefix`: strings with their escapes
/// decoded (\" \' \\ \n \r \xNN \uNNNN, as in Mozilla's modules/libpref/parser), numbers and words
/// unchanged. If a setting occurs twice, the last one counts. Lines of any other form are ignored.
MozillaPrefs parseMozillaPrefs(std::string_view text, std::string_view prefix);

}  // namespace pelk
