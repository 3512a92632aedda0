#pragma once
// Shows many chains below one node of a tree, each as a staircase.
//
// A search between two large domains finds more than a hundred thousand chains. The first ones are
// shown with all their nodes, expanded; of the others the tree has only the first node until the
// user expands it, so that the result appears at once and takes little memory.

#include <cstdint>
#include <string>
#include <vector>

#include "db/database.h"
#include "links/link_search.h"
#include "platform/controls.h"
#include "views/contact_search.h"
#include "views/search_field.h"

namespace pelk {

enum class ChainOrder { AsFound, CheapestFirst };

/// As a search target, it shows only the chains with a contact whose name and addresses contain all
/// words of the query, and of many at first only some.
class ChainsTree : public SearchTarget {
 public:
    /// The references must outlive this object; `database` is the form's, which may set it later.
    /// Takes over the tree's `onExpand` and `detailOf`.
    ChainsTree(TreeView& tree, const Database* const& database, const Language& language);

    /// Shows the chains below a node with that text, in their order. The first node of a chain has
    /// the chain's cost as tag.
    void fill(const std::string& title, std::vector<LinkChain> chains);
    /// Updates texts, images and colours after a change of the database.
    void refresh();
    void setOrder(ChainOrder order);
    /// Expands every chain shown that has the lowest cost, collapses the others, selects the first
    /// of the best and scrolls to it. Selects none if all cost too much (see `bestChains`).
    void showBest();

    std::size_t find(const std::string& query) override;
    void show(std::size_t hit) override;
    void noQuery() override;
    void prepare() override { contacts_.prepare(database_); }

 private:
    void fillAgain();
    void arrange();
    std::size_t rowCount();
    void addRows(std::size_t count);
    TreeNode& addExpandable();
    void addNodeForRest(std::size_t count);
    void showFirst(TreeNode& first);
    /// Completes a chain, and expands it if it was not complete.
    void addRest(TreeNode& first);
    std::vector<std::size_t> expandBest();
    void showWhole(TreeNode& first);
    bool holdsHit(const LinkChain& chain) const;
    const LinkChain& chainOf(const TreeNode& first) const;
    std::string detailOf(const TreeNode& node) const;
    TreeNode* root() { return tree_.model().firstByIndex(); }

    TreeView& tree_;
    const Database* const& database_;
    ContactSearch contacts_;
    std::string title_;
    std::vector<LinkChain> chains_;
    ChainOrder order_ = ChainOrder::AsFound;
    /// Set while a query limits the chains shown to those with one of these contacts.
    bool limited_ = false;
    /// By id.
    std::vector<bool> isHit_;
    /// The positions in `chains_` of all chains in the order chosen, and by row of those shown.
    std::vector<std::size_t> arranged_;
    std::vector<std::size_t> shown_;
    /// The last node, which gives place to the chains that the tree does not have yet; null if it
    /// has all.
    TreeNode* rest_ = nullptr;
    /// The largest weight that the form has seen. It never decreases, on purpose: successive
    /// results stay comparable.
    std::int64_t maxWeight_ = 0;
};

}  // namespace pelk
