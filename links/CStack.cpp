#include "links/CStack.h"

namespace pelk {
namespace {

constexpr std::size_t kStep = 100;

}  // namespace

void CStack::Clear() {
    items_.assign(kStep, 0);
    count_ = 0;
}

void CStack::Push(std::int32_t value) {
    const auto top = static_cast<std::size_t>(count_);
    if (top + 1 == items_.size())
        items_.resize(items_.size() + kStep);
    items_[top] = value;
    ++count_;
}

std::int32_t CStack::Pop() {
    const std::int32_t value = Peek();
    if (count_ > 0)
        --count_;
    if (items_.size() > static_cast<std::size_t>(count_) + kStep)
        items_.resize(items_.size() - kStep);
    return value;
}

std::int32_t CStack::Peek() const {
    return count_ > 0 ? items_[static_cast<std::size_t>(count_ - 1)] : 0;
}

}  // namespace pelk
