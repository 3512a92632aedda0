#include "map/rows.h"

#include <numeric>

namespace pelk {

Rows::Rows(std::size_t people, std::span<const GraphLink> links)
    : start_(people + 1), neighbours_(2 * links.size()) {
    for (const GraphLink& link : links) {
        ++start_[link.from];
        ++start_[link.to];
    }
    std::partial_sum(start_.begin(), start_.end(), start_.begin());
    for (std::size_t at = links.size(); at-- > 0;) {
        const GraphLink& link = links[at];
        const auto number = static_cast<std::uint32_t>(at);
        neighbours_[--start_[link.to]] = {link.from, number, link.weight};
        neighbours_[--start_[link.from]] = {link.to, number, link.weight};
    }
}

}  // namespace pelk
