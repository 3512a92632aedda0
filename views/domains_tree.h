#pragma once
// Shows the mail domains as a tree: top-level domains first, subdomains below them, and the
// addresses as leaves.

#include <cstdint>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"
#include "platform/language.h"
#include "views/domain_order.h"
#include "views/hidden_contacts.h"

namespace pelk {

/// Fills a tree with domains. Caches the parsed addresses until the database is edited.
class DomainsTree {
 public:
    /// Both references must outlive this object.
    DomainsTree(TreeView& tree, const Language& language) : tree_(tree), language_(language) {}

    /// Leaves out the addresses of these contacts from the next `fill` on; their domains count
    /// them.
    void hide(HiddenContacts::Ids ids);

    /// Fills the tree with the top-level domains, in order of first appearance in the document,
    /// each with a placeholder to expand.
    void fill(const Database& database);
    /// Fills the tree with the registered names of all domains instead, in alphabetical order. What
    /// lies below a name is the same as in the other tree.
    void fillByRegisteredName(const Database& database);
    /// Returns how the tree was filled last.
    DomainGrouping grouping() const { return grouping_; }
    /// Fills a label's node with the entries directly below it, in alphabetical order, unless it is
    /// filled already. An address leaf has the whole address as tag. Requires: the tree was filled
    /// from the same database.
    void expand(TreeNode& node, const Database& database);
    /// Returns all addresses that have a domain and are shown.
    const std::vector<MailAddress>& addresses(const Database& database);
    /// A number that increases when `addresses` returns others.
    std::uint64_t addressesRevision() const { return addressesRevision_; }
    /// Returns "5 contacts" for a label that is in the tree, and nothing for an address.
    std::string detailOf(const TreeNode& node, const Database& database);
    /// Returns the leaf of an address, after filling the labels above it; null when the tree has
    /// none. Requires: as for `expand`.
    TreeNode* leafOf(const MailAddress& address, const Database& database);

 private:
    void read(const Database& database);

    TreeView& tree_;
    const Language& language_;
    DomainGrouping grouping_ = DomainGrouping::ByLabel;
    HiddenContacts::Ids hidden_;
    /// All of them, and those shown.
    std::vector<MailAddress> all_;
    std::vector<MailAddress> addresses_;
    std::uint64_t addressesRevision_ = 0;
    /// By domain. Counted once each, because a tree asks whenever it paints.
    std::unordered_map<std::string, std::size_t> contactCounts_;
    /// The database and the revision that `addresses_` was read from.
    const Database* database_ = nullptr;
    std::uint64_t revision_ = 0;
};

/// Whether the node is an address. Every other node is a label.
inline bool isAddressLeaf(const TreeNode& node) {
    return std::holds_alternative<std::string>(node.tag());
}

/// Returns the node's domain, b.a for b under a; for an address leaf the whole address.
std::string domainOf(const TreeNode& node);

}  // namespace pelk
