#pragma once
// Asks for the target domain of a link search and runs the search, with a progress bar and a Stop
// button.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "db/database.h"
#include "links/domain_search.h"
#include "platform/language.h"
#include "platform/user_interface.h"
#include "views/domains_tree.h"
#include "views/form_layout.h"
#include "views/tree_search.h"

namespace pelk {

class findFormDomain : private DomainSearchProgress {
 public:
    findFormDomain(const UserInterface& ui, const Language& language);

    /// Set before `fillTreeDomains`, and not during a search. The database outlives the form's use
    /// of it.
    const Database* db = nullptr;
    /// Contacts whose addresses are not listed; null for none.
    HiddenContacts* hidden = nullptr;
    std::string sourceDomain;
    /// Called with the chains found. Set before the form is shown.
    std::function<void(const DomainLinks& links)> showResult;

    /// Fills the tree with the top level of the domains.
    void fillTreeDomains();
    /// Updates the tree after a change of the database. During a search the update waits until the
    /// search ends.
    void refresh();
    void show() { window->show(); }

    bool isSearching() const { return searching_; }
    /// Ends a search before its next pair, without a result. Called from within the search, while
    /// it processes pending events.
    void abandonSearch() { abandoned_ = true; }

    const std::unique_ptr<Window> window;
    Label& Label1;
    TreeView& presTree;
    SearchField searchField;
    ProgressBar& ProgressBar1;
    Button& okButton;
    Button& stopButton;
    Button& cancelButton;

 private:
    void okButtonClick();
    void close();
    void search(const std::string& targetDomain);
    void setSearching(bool searching);
    void processEvents();

    void pairsCounted(std::size_t count) override;
    void pairStarted(std::size_t index) override;
    bool stopsAfterChain() override;

    FormLayout layout_;
    UserInterface ui_;
    DomainsTree domains_;
    AddressLeaves addressLeaves_;
    /// The revision of the document that the tree shows.
    std::uint64_t revision_ = 0;
    bool searching_ = false;
    bool stopRequested_ = false;
    bool abandoned_ = false;
};

}  // namespace pelk
