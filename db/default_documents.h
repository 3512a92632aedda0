#pragma once
// The empty database document, in its two forms. They reset the thresholds, too.

#include <string_view>

namespace pelk {

/// What a first start writes to the new database file.
inline constexpr std::string_view kFirstStartDocument =
    "<?xml version='1.0' encoding='UTF-16' ?><pelkDB date='1970-01-01T00:00:00' totalMails='0' "
    "totalContacts='0'  maxInd='50' minInd='5' ><contacts /><relations total = '0'/></pelkDB>";

/// What is left when the user deletes the database.
inline constexpr std::string_view kEmptiedDocument =
    "<?xml version='1.0' encoding='UTF-16' ?><pelkDB date='1970-01-01T00:00:00' totalMails='0' "
    "totalContacts='0' maxInd='50' minInd='5'><contacts /><relations total = '0'/></pelkDB>";

}  // namespace pelk
