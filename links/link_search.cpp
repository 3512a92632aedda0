#include "links/link_search.h"

#include <algorithm>
#include <string>

#include "links/CStack.h"

namespace pelk {

std::optional<LinkChain> LinkSearch::find(int source, int target) {
    readGraph();
    requireContact(source);
    requireContact(target);
    if (source != source_)
        start(source);
    searchUntilFinal(target);
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

void LinkSearch::readGraph() {
    if (revision_ == database_.revision())
        return;
    graph_ = LinkGraph(database_);
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
    waiting_.clear();
    waiting_.add(source, 0);
    reach_ = 0;
    source_ = source;
}

/// Goes on from where the search stands, and ends before it comes to the target: a better chain
/// would lead by a contact that is not visited yet, so not nearer than `reach_`, and its last step
/// would cost no less than the target's strongest relation.
void LinkSearch::searchUntilFinal(int target) {
    int lastStep = kNoLink;
    for (const LinkEdge edge : graph_.edgesOf(target))
        lastStep = std::min(lastStep, edge.cost());
    while (reach_ + lastStep < distanceOf(target) && reach_ < waiting_.end()) {
        waiting_.takeAll(reach_, [this](int contact) { visit(contact); });
        ++reach_;
    }
}

/// A contact that was reached more cheaply after it was added has been visited already.
void LinkSearch::visit(int contact) {
    if (distanceOf(contact) < reach_)
        return;
    for (const LinkEdge edge : graph_.edgesOf(contact)) {
        const int distance = reach_ + edge.cost();
        int& known = distances_[static_cast<std::size_t>(edge.to())];
        if (distance < known) {
            known = distance;
            waiting_.add(edge.to(), distance);
        }
    }
}

/// The contact before this one on the best chain; 0 when that is the source. The rule, see `find`,
/// is what a search gives that always visits the nearest contact next, starts to look for it at
/// the highest number, changes its mind from the lowest number on for a strictly nearer one, and
/// keeps the first predecessor of several that are equally good.
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
