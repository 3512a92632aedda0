#include "views/tree_search.h"

#include <unordered_set>

namespace pelk {

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
    if (database_ == nullptr)
        return;
    domains_.addresses(*database_);
    if (revision_ != domains_.addressesRevision() || grouping_ != domains_.grouping())
        read();
}

void AddressLeaves::read() {
    addresses_ = domains_.addresses(*database_);
    grouping_ = domains_.grouping();
    sortAsShown(addresses_, grouping_, language_);
    words_.clear();
    for (const MailAddress& address : addresses_)
        words_.add(address.owner + " " + address.whole);
    revision_ = domains_.addressesRevision();
}

}  // namespace pelk
