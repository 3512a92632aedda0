#pragma once
// Contacts that wait to be visited, nearest first. Distances are small whole numbers, so each has
// a list of its own, and neither adding nor taking needs a comparison.

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace pelk {

class DistanceQueue {
 public:
    /// Above every distance at which a contact was added since the queue was cleared.
    int end() const { return static_cast<int>(first_.size()); }

    void clear() {
        first_.clear();
        entries_.clear();
    }

    /// Adds a contact, which may wait at other distances as well.
    void add(int contact, int distance) {
        const auto list = static_cast<std::size_t>(distance);
        if (list >= first_.size())
            first_.resize(list + 1, kNone);
        entries_.push_back({contact, first_[list]});
        first_[list] = static_cast<std::int32_t>(entries_.size()) - 1;
    }

    /// Takes all contacts at a distance below the end, in no particular order. The visitor may add
    /// others that are farther.
    template <typename Visit>
    void takeAll(int distance, const Visit& visit) {
        const auto list = static_cast<std::size_t>(distance);
        for (std::int32_t at = std::exchange(first_[list], kNone); at != kNone;) {
            const Entry entry = entries_[static_cast<std::size_t>(at)];
            visit(entry.contact);
            at = entry.next;
        }
    }

 private:
    static constexpr std::int32_t kNone = -1;
    struct Entry {
        std::int32_t contact;
        /// The position of the next entry at the same distance.
        std::int32_t next;
    };

    /// By distance, the position of its first entry.
    std::vector<std::int32_t> first_;
    std::vector<Entry> entries_;
};

}  // namespace pelk
