#pragma once
// The relations view: every contact as a top-level node of a tree, which expands into the contacts
// it has a relation with, coloured by the strength of that relation.

#include <cstdint>
#include <memory>

#include "db/database.h"
#include "platform/controls.h"
#include "platform/platform.h"

namespace pelk {

class ShowForm {
 public:
    ShowForm(Toolkit& toolkit, const Platform& platform);

    /// Set before `startShowing`; outlives the form's use of it.
    const Database* database = nullptr;

    /// Fills the tree and the totals. The strengths that are shown from now on are measured
    /// against the strongest relation of this moment.
    void startShowing();
    /// Rebuilds the tree of contacts.
    void fillTree();
    /// Shows the form beside the other windows.
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    TreeView& presTree;
    Label& dLabel1;
    Label& dLabel2;
    Button& refreshButton;
    Button& gotoButton;

 private:
    void formResize();
    void expand(TreeNode& node);
    void collapse(TreeNode& node);
    void addContactNode(const Contact& contact);
    void addRelatedContact(TreeNode& parent, int contactId, const Relation& relation,
                           const Thresholds& thresholds);
    void gotoButtonClick();
    void refreshButtonClick();

    Platform platform_;
    std::int64_t strongestWeight_ = 0;
};

}  // namespace pelk
