#pragma once
// Links in compressed sparse rows: one array holds the neighbours of all people, another the
// position at which each person's neighbours start.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "map/graph.h"

namespace pelk {

struct Neighbour {
    std::uint32_t person = 0;
    /// The position of the link.
    std::uint32_t link = 0;
    double weight = 0;
};

class Rows {
 public:
    /// A link of a person with itself becomes two neighbours. Requires: each end is less than
    /// `people`.
    Rows(std::size_t people, std::span<const GraphLink> links);
    explicit Rows(const Graph& graph) : Rows(graph.people.size(), graph.links) {}

    std::size_t size() const { return start_.size() - 1; }
    /// Returns a person's neighbours in the order of the links.
    std::span<const Neighbour> of(std::size_t person) const {
        return {neighbours_.data() + start_[person], neighbours_.data() + start_[person + 1]};
    }

 private:
    std::vector<std::size_t> start_;
    std::vector<Neighbour> neighbours_;
};

}  // namespace pelk
