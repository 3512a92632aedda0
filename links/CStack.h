#pragma once
// A stack of contact ids. The search finds a chain from its end and reverses it with this.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pelk {

class CStack {
 public:
    CStack() { Clear(); }

    /// The number of ids on the stack.
    int Count() const { return count_; }
    /// The number of allocated slots.
    std::size_t Capacity() const { return items_.size(); }

    /// Empties the stack and shrinks it to 100 slots.
    void Clear();
    /// Pushes an id. Adds 100 slots when only one slot is free.
    void Push(std::int32_t value);
    /// Pops the top id and returns it; 0 when the stack is empty. Frees 100 slots when more than
    /// 100 are unused afterwards.
    std::int32_t Pop();
    /// Returns the top id; 0, which no contact has, when the stack is empty.
    std::int32_t Peek() const;

 private:
    std::vector<std::int32_t> items_;
    int count_ = 0;
};

}  // namespace pelk
