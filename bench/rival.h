#pragma once
// A common interface to the searches of graph libraries.

#include <memory>

#include "bench/mail_graph.h"

namespace pelk {

class Rival {
 public:
    virtual ~Rival() = default;
    /// Finds the best chain from one contact to another and returns its cost. Stops when the
    /// target's distance is final, as the program's own search does.
    virtual int search(int source, int target) = 0;
};

/// Each returns its search with the graph built; null when its library is not installed.
std::unique_ptr<Rival> makeBoostRival(const MailGraph& graph);
std::unique_ptr<Rival> makeIgraphRival(const MailGraph& graph);

}  // namespace pelk
