#pragma once
// A stack of contact ids, which turns a chain round that was found from its end.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pelk {

class CStack {
 public:
    CStack() { Clear(); }

    /// The number of ids on the stack.
    int Count() const { return count_; }
    /// The number of slots that are held, used or not.
    std::size_t Capacity() const { return items_.size(); }

    /// Empties the stack, which holds its first 100 slots again.
    void Clear();
    /// Puts the id on top. The stack grows by 100 slots as soon as its last one is next.
    void Push(std::int32_t value);
    /// Takes the topmost id off and returns it; 0 when the stack is empty. Gives back 100 slots
    /// when that many lie unused above the last one in use and the one behind it.
    std::int32_t Pop();
    /// The topmost id; 0, which is no contact's, when the stack is empty.
    std::int32_t Peek() const;

 private:
    std::vector<std::int32_t> items_;
    int count_ = 0;
};

}  // namespace pelk
