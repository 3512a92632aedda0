#pragma once
// Shows all chains found between two mail domains, each as a staircase.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "links/link_search.h"
#include "platform/controls.h"
#include "views/form_layout.h"

namespace pelk {

class ShowFindFormDomains {
 public:
    explicit ShowFindFormDomains(Toolkit& toolkit);

    /// Set before `fill`; the database outlives the form's use of it.
    const Database* db = nullptr;
    std::string sourceDomain;
    std::string targetDomain;

    /// Shows the chains below one node that names the two domains. The first node of a chain has
    /// the chain's cost as tag.
    void fill(const std::vector<LinkChain>& chains);
    /// Updates the texts and colours of the chains after a change of the database.
    void refresh();
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    TreeView& presTree;
    Button& shortestButton;
    Button& okButton;

 private:
    void shortestButtonClick();

    FormLayout layout_;
    std::vector<LinkChain> chains_;
    /// The largest weight that the form has seen. It never decreases, on purpose: successive
    /// results stay comparable.
    std::int64_t maxWeight_ = 0;
};

}  // namespace pelk
