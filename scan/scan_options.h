#pragma once
// What the user may ask of a scan.

#include <string>

namespace pelk {

struct ScanOptions {
    /// Counts an e-mail in every folder of a store in which it lies, not only in the first.
    bool copies = false;
    /// A stamp, or the beginning of one: e-mails that came after it are counted, in place of those
    /// that came after the last scan. Empty for the latter.
    std::string since;
};

}  // namespace pelk
