#pragma once
// The best chain from one contact to another, as a staircase.

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
    /// The contacts of the chain, the source first.
    std::vector<int> path;

    /// Shows the path.
    void fill();
    /// Shows what a change of the database has made of the path.
    void refresh();
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    TreeView& presTree;
    Button& okButton;

 private:
    FormLayout layout_;
    /// The largest weight that the form has seen. It is never lowered, on purpose: two results that
    /// are looked at one after the other are measured alike.
    std::int64_t maxWeight_ = 0;
};

}  // namespace pelk
