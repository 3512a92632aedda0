#pragma once
// The people around a contact as a picture: those with stronger relations are nearer to it. Beside
// it, the same people as a list.

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "map/people_tree.h"
#include "map/picture_controls.h"
#include "platform/platform.h"
#include "platform/user_interface.h"
#include "views/form_layout.h"
#include "views/hidden_contacts.h"

namespace pelk {

class CircleForm {
 public:
    /// What the arguments refer to outlives the form. The platform writes the files of pictures.
    CircleForm(const UserInterface& ui, const Platform& platform);

    /// Set before a fill; outlives the form's use of it.
    const Database* database = nullptr;
    /// Outlives the form's use of it; null hides nobody.
    HiddenContacts* hidden = nullptr;
    /// Shows a contact in the relations view.
    std::function<void(int contactId)> showContact;

    /// Shows the people around a contact. While the form is open, the user can go back to the
    /// contact that it showed before.
    void fill(int contactId);
    /// Updates the form after a change of the database.
    void refresh();
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    Button& backButton;
    Label& peopleLabel;
    Slider& peopleSlider;
    Label& countLabel;
    Button& zoomInButton;
    Button& zoomOutButton;
    Button& showAllButton;
    Label& fromLabel;
    OptionButton& allRadio;
    OptionButton& mediumRadio;
    OptionButton& strongRadio;
    Label& treeLabel;
    TreeView& peopleTree;
    /// Says who is in the picture.
    Label& titleLabel;
    DrawingArea& picture;
    /// Says who is selected.
    Label& personLabel;
    Button& goButton;
    Button& saveButton;
    Button& printButton;
    Button& okButton;

 private:
    void place();
    PictureControls controls();
    void connect();
    void restoreChoices();
    void chooseFrom(Strength from);
    void goTo(int contactId);
    void goBack();
    /// Reads the relations of the person in the middle again, and shows the picture.
    void read();
    void showPeople();
    void showNobody();
    void enableFiles(bool hasPicture);
    void selectionChanged(int contactId);
    int contactInMiddle() const { return trail_.empty() ? 0 : trail_.back(); }
    std::string title() const;
    std::vector<std::string> factsOf(const GraphPerson& person) const;
    double mailsWithMiddle(const GraphPerson& person) const;

    UserInterface ui_;
    Platform platform_;
    FormLayout layout_;
    PictureView view_;
    PeopleTree people_;
    Strength from_ = Strength::Weak;
    /// How many people the user wants to see; there may be fewer.
    int wanted_ = 0;
    /// The contacts that were in the middle; the last one is there now.
    std::vector<int> trail_;
    /// Everybody around it.
    Graph around_;
};

}  // namespace pelk
