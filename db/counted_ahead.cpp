#include "db/counted_ahead.h"

#include <algorithm>

namespace pelk {

void CountedAhead::add(const std::string& scan, Prints prints) {
    std::erase_if(prints, [this](std::uint64_t print) { return contains(print); });
    if (prints.empty())
        return;
    Prints& all = scans_[scan];
    all.insert(all.end(), prints.begin(), prints.end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
}

void CountedAhead::add(const CountedAhead& other) {
    for (const auto& [scan, prints] : other.scans_)
        add(scan, prints);
}

const std::string* CountedAhead::scanOf(std::uint64_t print) const {
    for (const auto& [scan, prints] : scans_)
        if (std::binary_search(prints.begin(), prints.end(), print))
            return &scan;
    return nullptr;
}

void CountedAhead::forgetAfter(const std::string& stamp) {
    scans_.erase(scans_.upper_bound(stamp), scans_.end());
}

}  // namespace pelk
