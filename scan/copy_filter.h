#pragma once
// Tells the e-mails of a store that lie in another of its folders as well.

#include <cstdint>
#include <string>
#include <vector>

namespace pelk {

/// Knows e-mails by their Message-ID, of which it keeps a hash. What stands twice in one and the
/// same folder is no copy.
class CopyFilter {
 public:
    void beginStore();
    void beginFolder();
    /// Whether an earlier folder of the store has the e-mail. An e-mail without an id is no copy.
    bool isCopy(const std::string& messageId) const;
    /// Takes note of an e-mail of this folder.
    void add(const std::string& messageId);

 private:
    /// In ascending order.
    std::vector<std::uint64_t> before_;
    std::vector<std::uint64_t> here_;
};

}  // namespace pelk
