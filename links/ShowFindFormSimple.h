#pragma once
// Shows the best chain from one contact to another as a staircase, and on request the next best
// ones.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "db/database.h"
#include "links/alternative_chains.h"
#include "platform/controls.h"
#include "views/form_layout.h"

namespace pelk {

class ShowFindFormSimple {
 public:
    explicit ShowFindFormSimple(Toolkit& toolkit);

    /// Set before `fill`; the database outlives the form's use of it.
    const Database* db = nullptr;
    /// The contacts of the best chain, from the source to the target.
    std::vector<int> path;
    /// Shows a chain in the picture of the community. Set before the form is shown.
    std::function<void(const std::vector<int>& chain)> showInPicture;

    void fill();
    /// Updates the texts and colours of the chain shown after a change of the database.
    void refresh();
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    TreeView& presTree;
    Button& okButton;
    Button& previousButton;
    Button& nextButton;
    Button& avoidButton;
    Button& allowButton;
    /// Says which of the chains is shown.
    Label& placeLabel;
    Button& pictureButton;

 private:
    void placeStrip();
    void showChosen();
    void updateStrip();
    std::optional<int> selectedContact();
    void avoidButtonClick();

    FormLayout layout_;
    AlternativeChains chains_;
    /// The largest weight that the form has seen. It never decreases, on purpose: successive
    /// results stay comparable.
    std::int64_t maxWeight_ = 0;
};

}  // namespace pelk
