#include "links/link_search.h"

#include <algorithm>
#include <string>

#include "links/CStack.h"
#include "links/ranked_chains.h"

namespace pelk {

std::optional<LinkChain> LinkSearch::find(int source, int target) {
    readGraph();
    requireContact(source);
    requireContact(target);
    if (source != source_)
        start(source);
    settle(target);
    if (distanceOf(target) >= kNoLink)
        return std::nullopt;

    CStack stack;
    for (int id = target; id != 0; id = predecessorOf(id))
        stack.Push(id);
    stack.Push(source);
    LinkChain chain{{}, distanceOf(target)};
    while (stack.Peek() != 0)
        chain.ids.push_back(stack.Pop());
    return chain;
}

std::vector<LinkChain> LinkSearch::findSeveral(int source, int target, std::size_t count) {
    const std::optional<LinkChain> best = find(source, target);
    return best ? rankChains(graph_, *best, count) : std::vector<LinkChain>();
}

void LinkSearch::readGraph() {
    if (revision_ == database_.revision())
        return;
    graph_ = LinkGraph(database_);
    if (!without_.empty())
        graph_ = graph_.without(without_);
    revision_ = database_.revision();
    source_ = 0;
}

void LinkSearch::requireContact(int id) const {
    if (!graph_.holds(id))
        throw Error("There is no contact number " + std::to_string(id) +
                    ": the database counts contacts from 1 to " +
                    std::to_string(graph_.contacts()) + ".");
}

void LinkSearch::start(int source) {
    distances_.assign(static_cast<std::size_t>(graph_.contacts()) + 1, kNoLink);
    distances_[static_cast<std::size_t>(source)] = 0;
    queue_.clear();
    queue_.add(source, 0);
    frontier_ = 0;
    source_ = source;
}

/// Continues Dijkstra's algorithm until the distance of the target is final. It can stop before the
/// frontier reaches the target: a better chain would pass through a contact at `frontier_` or
/// farther, and its last step would cost at least as much as the target's cheapest edge.
void LinkSearch::settle(int target) {
    int lastStep = kNoLink;
    for (const LinkEdge edge : graph_.edgesOf(target))
        lastStep = std::min(lastStep, edge.cost());
    while (frontier_ + lastStep < distanceOf(target) && frontier_ < queue_.end()) {
        queue_.takeAll(frontier_, [this](int contact) { relaxEdgesOf(contact); });
        ++frontier_;
    }
}

/// Skips a contact that was also added at a smaller distance: its edges are relaxed already.
void LinkSearch::relaxEdgesOf(int contact) {
    if (distanceOf(contact) < frontier_)
        return;
    for (const LinkEdge edge : graph_.edgesOf(contact)) {
        const int distance = frontier_ + edge.cost();
        int& known = distances_[static_cast<std::size_t>(edge.to())];
        if (distance < known) {
            known = distance;
            queue_.add(edge.to(), distance);
        }
    }
}

/// The contact before this one on the best chain; 0 when that is the source. The tie rule of `find`
/// gives the same chains as Dijkstra's algorithm over a cost matrix that takes the highest-numbered
/// unsettled contact as the candidate, replaces it by a strictly nearer one in ascending order of
/// numbers, and keeps the first of several equally good predecessors.
int LinkSearch::predecessorOf(int contact) const {
    int nearest = kNoLink;
    int lowest = 0;
    int highest = 0;
    for (const LinkEdge edge : graph_.edgesOf(contact)) {
        const int distance = distanceOf(edge.to());
        if (distance + edge.cost() != distanceOf(contact) || distance > nearest)
            continue;
        if (distance < nearest) {
            nearest = distance;
            lowest = highest = edge.to();
        }
        lowest = std::min(lowest, edge.to());
        highest = std::max(highest, edge.to());
    }
    if (lowest == source_)
        return 0;
    return lowest != highest && noneFartherAbove(highest) ? highest : lowest;
}

bool LinkSearch::noneFartherAbove(int contact) const {
    return std::all_of(distances_.rbegin(), distances_.rend() - (contact + 1),
                       [limit = distanceOf(contact)](int distance) { return distance <= limit; });
}

}  // namespace pelk
