#pragma once
// Asks for the mail domain to which the best links are searched, and searches them, with progress
// and a way to stop.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "db/database.h"
#include "links/domain_search.h"
#include "platform/controls.h"
#include "platform/platform.h"
#include "views/domains_tree.h"
#include "views/form_layout.h"

namespace pelk {

class findFormDomain : private DomainSearchProgress {
 public:
    findFormDomain(Toolkit& toolkit, const Platform& platform);

    /// Set before `fillTreeDomains`; the database outlives the form's use of it. Neither may be
    /// changed during a search.
    const Database* db = nullptr;
    std::string sourceDomain;
    /// Where the chains that were found are handed to. Set before the form is shown.
    std::function<void(const DomainLinks& links)> showResult;

    /// Fills the tree with the top level of the domains.
    void fillTreeDomains();
    /// Shows what a change of the database has made of the domains. During a search the tree stays
    /// as it is, and is brought up to date when the search ends.
    void refresh();
    void show() { window->show(); }

    bool isSearching() const { return searching_; }
    /// Ends a search before its next pair, without a result. To be called while it lets the user
    /// act.
    void abandonSearch() { abandoned_ = true; }

    const std::unique_ptr<Window> window;
    Label& Label1;
    TreeView& presTree;
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
    Platform platform_;
    DomainsTree domains_;
    /// Of the document that the tree shows.
    std::uint64_t revision_ = 0;
    bool searching_ = false;
    bool stopRequested_ = false;
    bool abandoned_ = false;
};

}  // namespace pelk
