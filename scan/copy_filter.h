#pragma once
// Detects e-mails that are also in another folder of the same store.

#include <cstdint>
#include <vector>

namespace pelk {

/// Identifies e-mails by their fingerprints (`MailItem::fingerprint`; 0 is no fingerprint). An
/// e-mail that is twice in the same folder is not a copy.
class CopyFilter {
 public:
    void beginStore();
    void beginFolder();
    /// Whether an earlier folder of the store has the e-mail.
    bool isKnown(std::uint64_t print) const;
    /// Adds an e-mail of the current folder.
    void add(std::uint64_t print);

 private:
    /// The fingerprints of earlier folders, ascending.
    std::vector<std::uint64_t> before_;
    /// The fingerprints of the current folder, unsorted.
    std::vector<std::uint64_t> here_;
};

}  // namespace pelk
