#pragma once
// The e-mails that have been counted although their store's date does not cover them.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace pelk {

/// Maps the stamp of a scan to the fingerprints (`MailItem::fingerprint`) of e-mails it counted.
class CountedAhead {
 public:
    using Prints = std::vector<std::uint64_t>;

    /// Adds fingerprints, except those already listed for any scan.
    void add(const std::string& scan, Prints prints);
    void add(const CountedAhead& other);
    bool empty() const { return scans_.empty(); }
    bool contains(std::uint64_t print) const { return scanOf(print) != nullptr; }
    /// Returns the stamp of the scan that counted the e-mail; null when it is not listed.
    const std::string* scanOf(std::uint64_t print) const;
    /// Removes all scans with a later stamp.
    void forgetAfter(const std::string& stamp);

    /// The fingerprints of each scan, ascending; no list is empty.
    const std::map<std::string, Prints>& scans() const { return scans_; }

 private:
    std::map<std::string, Prints> scans_;
};

}  // namespace pelk
