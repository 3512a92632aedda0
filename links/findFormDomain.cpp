#include "links/findFormDomain.h"

#include <exception>
#include <optional>

#include "views/placeholder.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{5400, 6110};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr int kButtonTop = bottomButton(kInnerSize, 1).top;
constexpr int kProgressHeight = 260;
constexpr int kProgressTop = kButtonTop - kFormMargin - kProgressHeight;
constexpr Rect kLabelBounds{kFormMargin, kFormMargin, kWidth, 300};
constexpr int kSearchTop = 520;
constexpr int kTreeTop = 830;
constexpr Rect kTreeBounds{kFormMargin, kTreeTop, kWidth, kProgressTop - kFormMargin - kTreeTop};
constexpr Rect kProgressBounds{kFormMargin, kProgressTop, kWidth, kProgressHeight};

/// Thrown by a progress call to end the search.
struct SearchAbandoned {};

}  // namespace

findFormDomain::findFormDomain(const UserInterface& ui, const Language& language)
    : window(ui.toolkit.createWindow()),
      Label1(window->addLabel({}, "Select the domain to which you want to find the best link(s).")),
      presTree(window->addTreeView({})),
      searchField(*window, presTree, "Search names and addresses"),
      ProgressBar1(window->addProgressBar({})),
      okButton(window->addButton({}, "OK")),
      stopButton(window->addButton({}, "Stop!")),
      cancelButton(window->addButton({}, "Cancel")),
      layout_(*window, kInnerSize),
      ui_(ui),
      domains_(presTree, language),
      addressLeaves_(presTree, domains_, db, language) {
    window->setCaption("Best link(s)");
    layout_.add(Label1, kLabelBounds, kAnchorTop);
    searchField.place(layout_, kFormMargin, kSearchTop, kWidth);
    layout_.add(presTree, kTreeBounds, kAnchorFill);
    layout_.add(ProgressBar1, kProgressBounds, kAnchorBottom);
    layout_.add(okButton, bottomButton(kInnerSize, 3), kAnchorBottomRight);
    layout_.add(stopButton, bottomButton(kInnerSize, 2), kAnchorBottomRight);
    layout_.add(cancelButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
    stopButton.keepArrowPointer();
    stopButton.setEnabled(false);
    presTree.onExpand = [this](TreeNode& node) { domains_.expand(node, *db); };
    presTree.onCollapse = [this](TreeNode& node) { replaceByPlaceholder(presTree, node); };
    presTree.onSelect = [this](TreeNode&) { okButton.setEnabled(!searching_); };
    searchField.setTarget(addressLeaves_);
    searchField.onShown = [this](bool shown) {
        if (shown)
            okButton.setEnabled(!searching_);
    };
    window->setShortcut(Shortcut::Find, [this] { searchField.focus(); });
    presTree.onActivate = [this](TreeNode&) {
        if (!searching_)
            okButtonClick();
    };
    okButton.onClick = [this] { okButtonClick(); };
    stopButton.onClick = [this] { stopRequested_ = true; };
    cancelButton.onClick = [this] { close(); };
    window->onCloseRequest = [this] {
        close();
        return true;
    };
}

void findFormDomain::fillTreeDomains() {
    okButton.setEnabled(false);
    revision_ = db->revision();
    domains_.hide(hiddenIds(hidden, *db));
    domains_.fill(*db);
    searchField.setIdleText(hiddenText(hidden, *db));
    searchField.searchAgain();
}

void findFormDomain::refresh() {
    if (!searching_)
        fillTreeDomains();
}

/// Abandons the search, as the Stop button goes away with the form.
void findFormDomain::close() {
    abandonSearch();
    window->hide();
}

void findFormDomain::okButtonClick() {
    const TreeNode* const selected = presTree.selected();
    if (selected == nullptr)
        return;
    const std::string targetDomain = domainOf(*selected);
    if (const std::optional<std::string> refusal = domainRefusal(sourceDomain, targetDomain))
        ui_.dialogs.message(*refusal, Buttons::Ok);
    else
        search(targetDomain);
}

void findFormDomain::search(const std::string& targetDomain) {
    setSearching(true);
    std::optional<DomainLinks> links;
    try {
        links = findDomainLinks(*db, sourceDomain, targetDomain, *this);
        // The bar stays full until the result is on the screen.
        if (!links->chains.empty())
            showResult(*links);
    } catch (const SearchAbandoned&) {
        // The form has been closed or is about to be destroyed: there is nothing to show.
    } catch (const std::exception&) {
        setSearching(false);
        window->setBusyPointer(false);
        throw;
    }
    setSearching(false);
    if (links && links->chains.empty()) {
        // The busy pointer stays over the form, on purpose; the next result removes it.
        ui_.dialogs.message(noDomainLinksMessage(sourceDomain, targetDomain), Buttons::Ok);
        return;
    }
    window->setBusyPointer(false);
}

void findFormDomain::setSearching(bool searching) {
    searching_ = searching;
    stopRequested_ = false;
    abandoned_ = false;
    okButton.setEnabled(!searching);
    stopButton.setEnabled(searching);
    if (searching) {
        window->setBusyPointer(true);
        return;
    }
    ProgressBar1.setValue(1);
    if (revision_ != db->revision())
        fillTreeDomains();
}

void findFormDomain::pairsCounted(std::size_t count) {
    ProgressBar1.setRange(1, static_cast<int>(count) + 1);
    ProgressBar1.setValue(1);
}

void findFormDomain::pairStarted(std::size_t index) {
    ProgressBar1.setValue(static_cast<int>(index) + 1);
    processEvents();
}

bool findFormDomain::stopsAfterChain() {
    processEvents();
    return stopRequested_;
}

void findFormDomain::processEvents() {
    ui_.display.processPendingEvents();
    if (abandoned_)
        throw SearchAbandoned();
}

}  // namespace pelk
