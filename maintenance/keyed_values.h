#pragma once
// Values by keys, when nearly every key has a single one: sorted pairs take a fraction of the time
// and memory of a map.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace pelk {

/// A number or the hash of a text. Two texts may share one, so what is found needs another check.
using Key = std::uint64_t;

/// Returns the key of a text among those of its kind.
inline Key keyOf(std::string_view kind, std::string_view text) {
    return std::hash<std::string_view>()(text) ^ (std::hash<std::string_view>()(kind) << 1);
}

/// The values of each key, in ascending order and each once.
class KeyedValues {
 public:
    void add(Key key, Key value) { entries_.emplace_back(key, value); }
    /// Call this after all values have been added.
    void sort() {
        std::sort(entries_.begin(), entries_.end());
        entries_.erase(std::unique(entries_.begin(), entries_.end()), entries_.end());
    }
    std::size_t count(Key key) const { return valuesOf(key).size(); }
    /// The number of values that both keys have.
    std::size_t countShared(Key one, Key other) const {
        std::size_t count = 0;
        for (const Entry& entry : valuesOf(one))
            count +=
                std::binary_search(entries_.begin(), entries_.end(), Entry(other, entry.second));
        return count;
    }
    /// Calls `visit` with each two values of a key that has at most `most`.
    template <typename Visit>
    void forEachPair(std::size_t most, const Visit& visit) const {
        for (auto begin = entries_.begin(); begin != entries_.end();) {
            const auto end = std::find_if(begin, entries_.end(), [&begin](const Entry& entry) {
                return entry.first != begin->first;
            });
            for (auto second = begin;
                 static_cast<std::size_t>(end - begin) <= most && second != end; ++second)
                for (auto first = begin; first != second; ++first)
                    visit(first->second, second->second);
            begin = end;
        }
    }

 private:
    using Entry = std::pair<Key, Key>;
    std::span<const Entry> valuesOf(Key key) const {
        const auto [begin, end] = std::equal_range(
            entries_.begin(), entries_.end(), Entry(key, 0),
            [](const Entry& left, const Entry& right) { return left.first < right.first; });
        return {begin, end};
    }

    std::vector<Entry> entries_;
};

}  // namespace pelk
