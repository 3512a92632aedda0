#pragma once
// Tells the e-mails of a store that lie in another of its folders as well.

#include <cstdint>
#include <vector>

namespace pelk {

/// Knows e-mails by their fingerprints (`MailItem::fingerprint`), of which 0 is none. What stands
/// twice in one and the same folder is no copy.
class CopyFilter {
 public:
    void beginStore();
    void beginFolder();
    /// Whether an earlier folder of the store has the e-mail.
    bool isKnown(std::uint64_t print) const;
    /// Takes note of an e-mail of this folder.
    void add(std::uint64_t print);

 private:
    /// In ascending order.
    std::vector<std::uint64_t> before_;
    std::vector<std::uint64_t> here_;
};

}  // namespace pelk
