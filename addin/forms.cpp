#include "addin/forms.h"

#include <utility>

#include "db/date_stamp.h"
#include "maintenance/contact_edits.h"
#include "maintenance/saved_change.h"
#include "maintenance/undo.h"
#include "map/network_export.h"

namespace pelk {
namespace {

/// Updates a form after a change of the database. A closed form is filled when it opens.
template <typename Form>
void refreshIfOpen(const std::unique_ptr<Form>& form) {
    if (form && form->window->isVisible())
        form->refresh();
}

/// An open form is hidden first, so that its place is remembered.
template <typename Form>
void closeAndDestroy(std::unique_ptr<Form>& form) {
    if (form && form->window->isVisible())
        form->window->hide();
    form.reset();
}

}  // namespace

void Forms::openScan(Database& database, MailClient& mailClient) {
    const std::string first = database.date() == kNeverScanned
                                  ? "You must first scan your mailbox."
                                  : "Only newer e-mails will be scanned.";
    ParseForm& form = created(scan, "ParseForm", ui_, platform_, storage_);
    form.database = &database;
    form.mailClient = &mailClient;
    form.history = &history_;
    std::string summary;
    form.tell = [&summary](const std::string& text) { summary = text; };
    form.openView = [this, &database, &summary] {
        refreshBesideView();
        openView(database);
        if (!summary.empty())
            view->lastStepLabel.setText(summary);
    };
    form.showModal(first +
                       " This process may take a while. The deleted and outbox folders will NOT "
                       "be scanned.",
                   "Please click the start button!");
}

void Forms::openView(Database& database) {
    ShowForm& form = created(view, "ShowForm", ui_, platform_.language);
    form.database = &database;
    form.hidden = &hidden_;
    form.mergeContact = [this, &database](int id, const std::string& text) {
        openMerge(database, id, text);
    };
    form.openDetails = [this, &database](int id, int relatedId) {
        openDetails(database, id, relatedId);
    };
    form.openContact = [this, &database](const std::string& address) {
        openContact(database, address);
    };
    form.findLinks = [this, &database](int sourceId) { openFind(database, sourceId); };
    form.findDomainLinks = [this, &database](const std::string& sourceDomain) {
        openFindDomain(database, sourceDomain);
    };
    form.openCircle = [this, &database](int id) { openCircle(database, id); };
    form.openOverTime = [this, &database](int id, int otherId) {
        openOverTime(database, id, otherId);
    };
    form.openLostSight = [this, &database](int id) { openLostSight(database, id); };
    form.openCommunity = [this, &database] { openCommunity(database, {}); };
    form.contactSelected = [this](int id) {
        if (community && community->window->isVisible())
            community->select(id);
    };
    form.renameContact = [this, &database](int id, const std::string& name) {
        tellIfUnsaved(ui_.dialogs, [&] { renameContact(database, storage_, id, name); });
    };
    form.deleteContacts = [this, &database](const std::vector<int>& ids, const std::string& what) {
        tellIfUnsaved(ui_.dialogs, [&] { deleteContacts(database, storage_, ids, what); });
    };
    form.databaseChanged = [this] { refreshBesideView(); };
    form.hiddenChanged = [this] { refreshBesideView(); };
    form.undo = [this, &database] { undo(database); };
    form.redo = [this, &database] { redo(database); };
    setUndoKeys(*form.window, database);
    form.startShowing();
    form.show();
}

void Forms::undo(Database& database) {
    if (database.undoName().empty())
        return;
    tellIfUnsaved(ui_.dialogs, [&] { undoStep(database, storage_); });
    showStep(database);
}

void Forms::redo(Database& database) {
    if (database.redoName().empty())
        return;
    tellIfUnsaved(ui_.dialogs, [&] { redoStep(database, storage_); });
    showStep(database);
}

/// Shows in all forms what an undo or a redo has changed.
void Forms::showStep(const Database& database) {
    refreshIfOpen(view);
    refreshBesideView();
    if (others)
        others->doneLabel.setText(lastStepText(database));
}

/// Lets the user undo and redo from a form.
void Forms::setUndoKeys(Window& window, Database& database) {
    window.setShortcut(Shortcut::Undo, [this, &database] { undo(database); });
    window.setShortcut(Shortcut::Redo, [this, &database] { redo(database); });
}

void Forms::openMerge(Database& database, int contactId, const std::string& text) {
    mergeForm& form =
        created(merge, "mergeForm", ui_.toolkit, ui_.dialogs, storage_, platform_.language);
    form.database = &database;
    form.hidden = &hidden_;
    form.databaseChanged = [this] {
        refreshIfOpen(view);
        refreshBesideView();
    };
    setUndoKeys(*form.window, database);
    form.addContact(contactId, text);
}

void Forms::openDetails(Database& database, int contactId, int relatedId) {
    DetailsForm& form = created(details, "DetailsForm", ui_.toolkit);
    form.database = &database;
    setUndoKeys(*form.window, database);
    form.openOverTime = [this, &database](int id, int otherId) {
        openOverTime(database, id, otherId);
    };
    form.fillInfo(contactId, relatedId);
    form.show();
}

void Forms::openCircle(Database& database, int contactId) {
    CircleForm& form = created(circle, "CircleForm", ui_, platform_);
    form.database = &database;
    form.hidden = &hidden_;
    form.showContact = [this, &database](int id) { showInView(database, id); };
    setUndoKeys(*form.window, database);
    form.fill(contactId);
    form.show();
}

void Forms::openOverTime(const Database& database, int contactId, int otherId) {
    tellOfDamagedHistory();
    OverTimeForm& form = created(overTime, "OverTimeForm", ui_.toolkit);
    form.database = &database;
    form.history = [this]() -> const History& { return history_.history(); };
    form.fill(contactId, otherId);
    form.show();
}

void Forms::tellOfDamagedHistory() {
    const std::optional<std::string> notice = history_.notice();
    if (notice && !std::exchange(damageTold_, true))
        ui_.dialogs.message(*notice, Buttons::Ok);
}

void Forms::openLostSight(Database& database, int contactId) {
    tellOfDamagedHistory();
    LostSightForm& form = created(lostSight, "LostSightForm", ui_.toolkit, platform_.clock);
    form.database = &database;
    form.history = [this]() -> const History& { return history_.history(); };
    form.ownAddresses = [this] { return history_.ownAddresses(); };
    form.hidden = &hidden_;
    form.showContact = [this, &database](int id) { showInView(database, id); };
    form.fill(contactId);
    form.show();
}

void Forms::openCommunity(Database& database, const std::vector<int>& chain) {
    CommunityForm& form = created(community, "CommunityForm", ui_, platform_);
    form.database = &database;
    form.hidden = &hidden_;
    form.contactSelected = [this](int id) { selectInView(id); };
    form.openCircle = [this, &database](int id) { openCircle(database, id); };
    form.showContact = [this, &database](int id) { showInView(database, id); };
    setUndoKeys(*form.window, database);
    form.showChain(chain);
    form.show();
}

/// A closed relations view stays closed.
void Forms::selectInView(int contactId) {
    if (view && view->window->isVisible())
        view->selectContact(contactId);
}

void Forms::showInView(Database& database, int contactId) {
    if (!view || !view->window->isVisible())
        openView(database);
    view->show();
    view->goToContact(contactId);
}

void Forms::openContact(Database& database, const std::string& address) {
    ShowFormSingle& form = created(contact, "ShowFormSingle", ui_.toolkit, ui_.display);
    form.database = &database;
    form.openDetails = [this, &database](int id, int relatedId) {
        openDetails(database, id, relatedId);
    };
    setUndoKeys(*form.window, database);
    form.startShowing(address);
    form.show();
}

void Forms::openFind(Database& database, int sourceId) {
    findForm& form = created(find, "findForm", ui_.toolkit, ui_.dialogs, platform_.language);
    form.db = &database;
    form.hidden = &hidden_;
    form.sourceId = sourceId;
    form.showResult = [this, &database](const std::vector<int>& path) {
        ShowFindFormSimple& result = created(links, "ShowFindFormSimple", ui_.toolkit);
        result.db = &database;
        setUndoKeys(*result.window, database);
        result.path = path;
        result.showInPicture = [this, &database](const std::vector<int>& chain) {
            openCommunity(database, chain);
        };
        result.fill();
        result.show();
    };
    form.fillList();
    form.show();
}

/// During a search, brings the form to the front unchanged, and tells the user why another search
/// does not start.
void Forms::openFindDomain(Database& database, const std::string& sourceDomain) {
    findFormDomain& form = created(findDomain, "findFormDomain", ui_, platform_.language);
    if (!form.isSearching()) {
        form.db = &database;
        form.hidden = &hidden_;
        form.sourceDomain = sourceDomain;
        form.showResult = [this, &database](const DomainLinks& found) {
            ShowFindFormDomains& result =
                created(domainLinks, "ShowFindFormDomains", ui_.toolkit, platform_.language);
            result.db = &database;
            setUndoKeys(*result.window, database);
            result.sourceDomain = found.source;
            result.targetDomain = found.target;
            result.fill(found.chains);
            result.show();
        };
        form.fillTreeDomains();
    }
    form.show();
    if (form.sourceDomain != sourceDomain)
        ui_.dialogs.message("A search for the links of " + form.sourceDomain +
                                " is still running. Stop it or wait until it ends before you "
                                "search for those of " +
                                sourceDomain + ".",
                            Buttons::Ok);
}

void Forms::openOthers(Database& database) {
    OthersForm& form = created(others, "OthersForm", ui_, storage_);
    form.database = &database;
    form.history = &history_;
    setUndoKeys(*form.window, database);
    form.configure = [this, &database] { openConfiguration(database); };
    form.findDuplicates = [this, &database] { openDuplicates(database); };
    form.exportNetwork = [this, &database] {
        return exportNetwork(database, hidden_.of(database), ui_.dialogs, platform_);
    };
    form.databaseChanged = [this] {
        refreshIfOpen(view);
        refreshBesideView();
    };
    form.show();
}

void Forms::openDuplicates(Database& database) {
    DuplicatesForm& form =
        created(duplicates, "DuplicatesForm", ui_.toolkit, ui_.settings, platform_.language);
    form.database = &database;
    form.mergeContact = [this, &database](int id, const std::string& text) {
        openMerge(database, id, text);
    };
    setUndoKeys(*form.window, database);
    form.fill();
    form.show();
}

void Forms::openConfiguration(Database& database) {
    configForm& form = created(configuration, "configForm", ui_.toolkit, ui_.dialogs, storage_);
    form.database = &database;
    form.showModal();
    if (view)
        view->showLastStep();
}

void Forms::openAbout() {
    created(about, "aboutForm", ui_.toolkit).show();
}

/// Updates all forms but the relations view, which updates itself after its own commands.
void Forms::refreshBesideView() {
    refreshIfOpen(merge);
    refreshIfOpen(details);
    refreshIfOpen(contact);
    refreshIfOpen(find);
    refreshIfOpen(links);
    refreshIfOpen(findDomain);
    refreshIfOpen(domainLinks);
    refreshIfOpen(duplicates);
    refreshIfOpen(circle);
    refreshIfOpen(overTime);
    refreshIfOpen(lostSight);
    refreshIfOpen(community);
}

void Forms::abandonSearch() {
    if (findDomain)
        findDomain->abandonSearch();
}

void Forms::rememberPlace(Window& window, const char* form) {
    const std::string key = std::string("place") + form;
    if (const auto place = ui_.settings.read(key))
        window.setPlace(*place);
    window.onHide = [this, &window, key] { ui_.settings.write(key, window.place()); };
}

void Forms::unload() {
    closeAndDestroy(community);
    closeAndDestroy(lostSight);
    closeAndDestroy(overTime);
    closeAndDestroy(circle);
    closeAndDestroy(about);
    closeAndDestroy(configuration);
    closeAndDestroy(duplicates);
    closeAndDestroy(others);
    closeAndDestroy(domainLinks);
    closeAndDestroy(findDomain);
    closeAndDestroy(links);
    closeAndDestroy(find);
    closeAndDestroy(contact);
    closeAndDestroy(details);
    closeAndDestroy(merge);
    closeAndDestroy(view);
    closeAndDestroy(scan);
}

}  // namespace pelk
