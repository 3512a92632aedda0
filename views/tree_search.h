#pragma once
// What the search fields above trees of contacts and of domains search.

#include <cstdint>
#include <string>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"
#include "views/contact_search.h"
#include "views/domains_tree.h"
#include "views/search_field.h"

namespace pelk {

/// Finds contacts in a tree with a top-level node for each, whose tag is the contact's id. The hits
/// have the order of the nodes.
class ContactNodes : public SearchTarget {
 public:
    /// The references must outlive this object; `database` is the form's, which may set it later.
    ContactNodes(TreeView& tree, const Database* const& database, const Language& language)
        : tree_(tree), database_(database), contacts_(language) {}

    std::size_t find(const std::string& query) override;
    void show(std::size_t hit) override;
    void prepare() override { contacts_.prepare(database_); }

 private:
    TreeView& tree_;
    const Database* const& database_;
    ContactSearch contacts_;
    std::vector<int> rows_;
};

/// Finds addresses in a tree of domains by their own text and the names of their owners. The hits
/// have the order of the leaves.
class AddressLeaves : public SearchTarget {
 public:
    /// The references must outlive this object; `database` is the form's, which may set it later.
    AddressLeaves(TreeView& tree, DomainsTree& domains, const Database* const& database,
                  const Language& language)
        : tree_(tree),
          domains_(domains),
          database_(database),
          language_(language),
          words_(language) {}

    std::size_t find(const std::string& query) override;
    /// Fills the domains of the address, and selects its leaf.
    void show(std::size_t hit) override;
    void prepare() override;

 private:
    void read();

    TreeView& tree_;
    DomainsTree& domains_;
    const Database* const& database_;
    const Language& language_;
    WordSearch words_;
    /// By number of the text in `words_`.
    std::vector<MailAddress> addresses_;
    std::vector<std::size_t> hits_;
    /// The revision of the tree's addresses that `addresses_` holds.
    std::uint64_t revision_ = 0;
    DomainGrouping grouping_ = DomainGrouping::ByLabel;
};

}  // namespace pelk
