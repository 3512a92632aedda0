#pragma once
// The e-mails that have been counted although a date alone would not tell so.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace pelk {

/// Fingerprints of e-mails (`MailItem::fingerprint`), by the stamp of the scan that counted them.
class CountedAhead {
 public:
    using Prints = std::vector<std::uint64_t>;

    /// Fingerprints that are there already, from whichever scan, are not added again.
    void add(const std::string& scan, Prints prints);
    void add(const CountedAhead& other);
    bool empty() const { return scans_.empty(); }
    bool contains(std::uint64_t print) const { return scanOf(print) != nullptr; }
    /// The stamp of the scan that counted the e-mail; null when it is not one of these.
    const std::string* scanOf(std::uint64_t print) const;
    /// Forgets what scans after that stamp counted.
    void forgetAfter(const std::string& stamp);

    /// By scan; the fingerprints of each in ascending order, none of them empty.
    const std::map<std::string, Prints>& scans() const { return scans_; }

 private:
    std::map<std::string, Prints> scans_;
};

}  // namespace pelk
