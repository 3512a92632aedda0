#include "links/alternative_chains.h"

#include <algorithm>
#include <utility>

#include "views/contact_text.h"

namespace pelk {
namespace {

std::string shortName(const Database& database, int id) {
    const std::string name = database.nameOf(id);
    return name.empty() ? joinedAddresses(database.contact(id).value_or(Contact())) : name;
}

}  // namespace

void AlternativeChains::start(const Database& database, const std::vector<int>& best) {
    database_ = &database;
    avoided_.clear();
    shown_ = best;
    update();
}

void AlternativeChains::update() {
    chains_ = search(avoided_);
    place_.reset();
    for (std::size_t place = 0; place < chains_.size(); ++place)
        if (chains_[place].ids == shown_)
            place_ = place;
}

/// Finds nothing when an end has been deleted.
std::vector<LinkChain> AlternativeChains::search(const std::vector<int>& avoided) const {
    const int source = shown_.front();
    const int target = shown_.back();
    if (!database_->contact(source) || !database_->contact(target))
        return {};
    return LinkSearch(*database_, avoided).findSeveral(source, target, kMost);
}

void AlternativeChains::show(std::size_t place) {
    place_ = place;
    shown_ = chains_[place].ids;
}

bool AlternativeChains::canAvoid(int id) const {
    return std::find(shown_.begin() + 1, shown_.end() - 1, id) != shown_.end() - 1;
}

bool AlternativeChains::avoid(int id) {
    std::vector<int> avoided = avoided_;
    avoided.push_back(id);
    std::vector<LinkChain> chains = search(avoided);
    if (chains.empty())
        return false;
    avoided_ = std::move(avoided);
    replace(std::move(chains));
    return true;
}

void AlternativeChains::allowLast() {
    avoided_.pop_back();
    replace(search(avoided_));
}

void AlternativeChains::replace(std::vector<LinkChain> chains) {
    chains_ = std::move(chains);
    place_.reset();
    if (!chains_.empty())
        show(0);
}

std::string AlternativeChains::summary() const {
    std::string text = kNoChainMessage;
    if (place_)
        text = std::to_string(*place_ + 1) + " of " + std::to_string(chains_.size()) + ", cost " +
               std::to_string(chains_[*place_].cost);
    else if (!chains_.empty())
        text = "This chain is no longer one of the best";
    const char* separator = ", not through ";
    for (const int id : avoided_) {
        text += separator + shortName(*database_, id);
        separator = ", ";
    }
    return text;
}

std::string needsMessage(const Database& database, int id) {
    return "Every chain goes through " + shortName(database, id) + ".";
}

}  // namespace pelk
