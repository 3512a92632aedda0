#pragma once
// Shows the best chain from one contact to another as a staircase.

#include <cstdint>
#include <memory>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"
#include "views/form_layout.h"

namespace pelk {

class ShowFindFormSimple {
 public:
    explicit ShowFindFormSimple(Toolkit& toolkit);

    /// Set before `fill`; the database outlives the form's use of it.
    const Database* db = nullptr;
    /// The contacts of the chain, from the source to the target.
    std::vector<int> path;

    void fill();
    /// Updates the texts and colours of the path after a change of the database.
    void refresh();
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    TreeView& presTree;
    Button& okButton;

 private:
    FormLayout layout_;
    /// The largest weight that the form has seen. It never decreases, on purpose: successive
    /// results stay comparable.
    std::int64_t maxWeight_ = 0;
};

}  // namespace pelk
