#include "views/tree_search.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

namespace pelk {
namespace {

/// Sorts addresses as a tree of domains shows them: by top-level domain, in order of first
/// appearance, then by label from right to left.
void sortByDomain(std::vector<MailAddress>& addresses) {
    std::unordered_map<std::string, std::size_t> ranks;
    for (const std::string& label : topLevelDomains(addresses))
        ranks.emplace(label, ranks.size());
    const auto rank = [&ranks](const MailAddress& address) {
        return ranks.at(address.parts.back());
    };
    std::stable_sort(
        addresses.begin(), addresses.end(), [&](const MailAddress& left, const MailAddress& right) {
            const std::size_t one = rank(left);
            const std::size_t other = rank(right);
            return one != other
                       ? one < other
                       : std::lexicographical_compare(left.parts.rbegin(), left.parts.rend(),
                                                      right.parts.rbegin(), right.parts.rend());
        });
}

}  // namespace

std::size_t ContactNodes::find(const std::string& query) {
    rows_.clear();
    const std::vector<int> found = contacts_.find(*database_, query);
    const std::unordered_set<int> ids(found.begin(), found.end());
    for (const TreeNode* const node : tree_.model().root().children())
        if (const int* const id = std::get_if<int>(&node->tag());
            id != nullptr && ids.contains(*id))
            rows_.push_back(node->row());
    return rows_.size();
}

void ContactNodes::show(std::size_t hit) {
    tree_.select(tree_.model().root().children()[static_cast<std::size_t>(rows_[hit])]);
}

std::size_t AddressLeaves::find(const std::string& query) {
    prepare();
    hits_ = words_.find(query);
    return hits_.size();
}

void AddressLeaves::show(std::size_t hit) {
    tree_.select(domains_.leafOf(addresses_[hits_[hit]], *database_));
}

void AddressLeaves::prepare() {
    if (read_ != database_ || revision_ != database_->revision())
        read();
}

void AddressLeaves::read() {
    addresses_ = domains_.addresses(*database_);
    sortByDomain(addresses_);
    words_.clear();
    for (const MailAddress& address : addresses_)
        words_.add(address.owner + " " + address.whole);
    read_ = database_;
    revision_ = database_->revision();
}

}  // namespace pelk
