#pragma once
// The two forms of the empty database document. Both have the default thresholds.

#include <string_view>

namespace pelk {

/// The document that the first start of the program writes.
inline constexpr std::string_view kFirstStartDocument =
    "<?xml version='1.0' encoding='UTF-16' ?><pelkDB date='1970-01-01T00:00:00' totalMails='0' "
    "totalContacts='0'  maxInd='50' minInd='5' ><contacts /><relations total = '0'/></pelkDB>";

/// The document after the user has deleted the database.
inline constexpr std::string_view kEmptiedDocument =
    "<?xml version='1.0' encoding='UTF-16' ?><pelkDB date='1970-01-01T00:00:00' totalMails='0' "
    "totalContacts='0' maxInd='50' minInd='5'><contacts /><relations total = '0'/></pelkDB>";

}  // namespace pelk
