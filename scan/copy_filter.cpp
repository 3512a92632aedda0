#include "scan/copy_filter.h"

#include <algorithm>
#include <functional>

namespace pelk {
namespace {

std::uint64_t hashOf(const std::string& messageId) {
    return std::hash<std::string>()(messageId);
}

}  // namespace

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

bool CopyFilter::isCopy(const std::string& messageId) const {
    return !messageId.empty() &&
           std::binary_search(before_.begin(), before_.end(), hashOf(messageId));
}

void CopyFilter::add(const std::string& messageId) {
    if (!messageId.empty())
        here_.push_back(hashOf(messageId));
}

}  // namespace pelk
