#pragma once
// The searches of graph libraries in one shape.

#include <memory>

#include "bench/mail_graph.h"

namespace pelk {

class Rival {
 public:
    virtual ~Rival() = default;
    /// Finds the best chain from one contact to another and returns its cost. Ends, as the
    /// program's own search does, when the target's distance is final.
    virtual int search(int source, int target) = 0;
};

/// Each with the graph built; null when its library is not there.
std::unique_ptr<Rival> makeBoostRival(const MailGraph& graph);
std::unique_ptr<Rival> makeIgraphRival(const MailGraph& graph);

}  // namespace pelk
