#pragma once
// A bucket queue of contacts, nearest first: Dial, "Algorithm 360: Shortest-path forest with
// topological ordering", CACM 12(11), 1969. Distances are small integers, so each has a bucket,
// and neither adding nor taking compares keys. Not thread-safe.

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace pelk {

class BucketQueue {
 public:
    /// One more than the greatest distance added since the last `clear`; 0 if there is none.
    int end() const { return static_cast<int>(buckets_.size()); }

    void clear() {
        buckets_.clear();
        entries_.clear();
    }

    /// Adds a contact. A contact may be in the queue at several distances.
    void add(int contact, int distance) {
        const auto bucket = static_cast<std::size_t>(distance);
        if (bucket >= buckets_.size())
            buckets_.resize(bucket + 1, kNone);
        entries_.push_back({contact, buckets_[bucket]});
        buckets_[bucket] = static_cast<std::int32_t>(entries_.size()) - 1;
    }

    /// Whether contacts are in the queue at a distance. Requires: `distance` is less than `end()`.
    bool hasAny(int distance) const {
        return buckets_[static_cast<std::size_t>(distance)] != kNone;
    }

    /// Removes all contacts at a distance and passes each to `visit`, in no particular order. What
    /// `visit` adds, at this distance or a greater one, stays in the queue. Requires: `distance` is
    /// less than `end()`.
    template <typename Visit>
    void takeAll(int distance, const Visit& visit) {
        const auto bucket = static_cast<std::size_t>(distance);
        for (std::int32_t at = std::exchange(buckets_[bucket], kNone); at != kNone;) {
            const Entry entry = entries_[static_cast<std::size_t>(at)];
            visit(entry.contact);
            at = entry.next;
        }
    }

 private:
    static constexpr std::int32_t kNone = -1;
    struct Entry {
        std::int32_t contact;
        /// The position of the next entry in the same bucket.
        std::int32_t next;
    };

    /// By distance: the position of the bucket's first entry.
    std::vector<std::int32_t> buckets_;
    std::vector<Entry> entries_;
};

}  // namespace pelk
