#include "scan/copy_filter.h"

#include <algorithm>

namespace pelk {
void CopyFilter::beginStore() {
    before_.clear();
    here_.clear();
}

void CopyFilter::beginFolder() {
    std::sort(here_.begin(), here_.end());
    here_.erase(std::unique(here_.begin(), here_.end()), here_.end());
    const auto middle = static_cast<std::ptrdiff_t>(before_.size());
    before_.insert(before_.end(), here_.begin(), here_.end());
    std::inplace_merge(before_.begin(), before_.begin() + middle, before_.end());
    here_.clear();
}

bool CopyFilter::isKnown(std::uint64_t print) const {
    return std::binary_search(before_.begin(), before_.end(), print);
}

void CopyFilter::add(std::uint64_t print) {
    if (print != 0)
        here_.push_back(print);
}

}  // namespace pelk
