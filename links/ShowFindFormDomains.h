#pragma once
// Shows all chains found between two mail domains, each as a staircase.

#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "links/chains_tree.h"
#include "platform/controls.h"
#include "views/form_layout.h"
#include "views/search_field.h"

namespace pelk {

class ShowFindFormDomains {
 public:
    ShowFindFormDomains(Toolkit& toolkit, const Language& language);

    /// Set before `fill`; the database outlives the form's use of it.
    const Database* db = nullptr;
    std::string sourceDomain;
    std::string targetDomain;

    /// Shows the chains below one node that names the two domains (see `ChainsTree`).
    void fill(const std::vector<LinkChain>& chains);
    /// Updates the texts and colours of the chains after a change of the database.
    void refresh() { chainsTree_.refresh(); }
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    TreeView& presTree;
    Button& shortestButton;
    Button& okButton;
    SearchField search;
    OptionButton& foundOrder;
    OptionButton& costOrder;

 private:
    void placeStrip();

    FormLayout layout_;
    ChainsTree chainsTree_;
};

}  // namespace pelk
