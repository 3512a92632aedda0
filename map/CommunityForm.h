#pragma once
// The picture of the whole community, beside a list of its groups and people.

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
#include "views/contact_search.h"
#include "views/form_layout.h"
#include "views/hidden_contacts.h"
#include "views/search_field.h"

namespace pelk {

class CommunityForm {
 public:
    /// Both outlive this form.
    CommunityForm(const UserInterface& ui, const Platform& platform);

    /// Set before a fill; outlives the form's use of it.
    const Database* database = nullptr;
    /// Outlives the form's use of it; null hides nobody.
    HiddenContacts* hidden = nullptr;
    /// Called when the user has selected a person.
    std::function<void(int contactId)> contactSelected;
    /// Shows a contact in the relations view.
    std::function<void(int contactId)> showContact;
    /// Called when the user double-clicks a person or presses Enter on it in the list.
    std::function<void(int contactId)> openCircle;

    /// Show the people with most e-mails, with a chain marked that an earlier call named; the
    /// second one marks another chain, and shows those of its people, too, who would not be there.
    void fill();
    void showChain(std::vector<int> contactIds);
    /// Updates the form after a change of the database.
    void refresh() { fill(); }
    /// Selects a person; nobody if it is not in the picture. Calls no handler.
    void select(int contactId);
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    Label& treeLabel;
    TreeView& peopleTree;
    SearchField search;
    Button& zoomInButton;
    Button& zoomOutButton;
    Button& showAllButton;
    /// Says how many people are shown.
    Label& countLabel;
    DrawingArea& picture;
    /// Says who is selected, or which chain is marked.
    Label& selectedLabel;
    Button& goButton;
    Button& chainButton;
    Button& saveButton;
    Button& printButton;
    Button& okButton;

 private:
    /// Finds people in the picture, those with most e-mails first.
    class Hits : public SearchTarget {
     public:
        Hits(CommunityForm& form, const Language& language) : form_(form), contacts_(language) {}

        std::size_t find(const std::string& query) override;
        void show(std::size_t hit) override;
        void noQuery() override;
        void prepare() override { contacts_.prepare(form_.database); }

     private:
        CommunityForm& form_;
        ContactSearch contacts_;
        std::vector<int> ids_;
    };

    void place();
    PictureControls controls();
    void setHandlers();
    void selectByUser(int contactId);
    void showSelected();
    void showCounts();
    std::string nameOf(int contactId) const;

    UserInterface ui_;
    Platform platform_;
    FormLayout layout_;
    PictureView view_;
    PeopleTree people_;
    Hits hits_;
    /// The contacts of the marked chain; empty for none.
    std::vector<int> chain_;
};

}  // namespace pelk
