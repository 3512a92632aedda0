#pragma once
// The forms of the program, one of each, created on first use, and the connections between them.
//
// No form is thread-safe: all calls on the thread that owns the windows.

#include <memory>
#include <string>

#include "addin/aboutForm.h"
#include "addin/configForm.h"
#include "db/database.h"
#include "db/storage.h"
#include "history/history_file.h"
#include "links/ShowFindFormDomains.h"
#include "links/ShowFindFormSimple.h"
#include "links/findForm.h"
#include "links/findFormDomain.h"
#include "maintenance/DetailsForm.h"
#include "maintenance/DuplicatesForm.h"
#include "maintenance/OthersForm.h"
#include "maintenance/ShowFormSingle.h"
#include "maintenance/mergeForm.h"
#include "map/CircleForm.h"
#include "map/CommunityForm.h"
#include "platform/mail_client.h"
#include "platform/platform.h"
#include "platform/user_interface.h"
#include "scan/ParseForm.h"
#include "views/LostSightForm.h"
#include "views/OverTimeForm.h"
#include "views/ShowForm.h"
#include "views/hidden_contacts.h"

namespace pelk {

class Forms {
 public:
    /// All references outlive the forms.
    Forms(const UserInterface& ui, const Platform& platform, Storage& storage)
        : ui_(ui), platform_(platform), storage_(storage) {}

    /// Each function fills a form from the database, which outlives it, and shows it.
    void openScan(Database& database, MailClient& mailClient);
    void openView(Database& database);
    void openOthers(Database& database);
    void openAbout();

    /// Undo or redo the last step, save, and update all open forms. Do nothing when there is none.
    void undo(Database& database);
    void redo(Database& database);

    /// Ends a running search, and with it the handler that runs it. Called when the forms cannot be
    /// unloaded yet because one of their handlers is running.
    void abandonSearch();
    /// Destroys all forms with their windows.
    void unload();

    /// The forms; null before the first use.
    std::unique_ptr<ParseForm> scan;
    std::unique_ptr<ShowForm> view;
    std::unique_ptr<mergeForm> merge;
    std::unique_ptr<DetailsForm> details;
    std::unique_ptr<ShowFormSingle> contact;
    std::unique_ptr<findForm> find;
    std::unique_ptr<ShowFindFormSimple> links;
    std::unique_ptr<findFormDomain> findDomain;
    std::unique_ptr<ShowFindFormDomains> domainLinks;
    std::unique_ptr<OthersForm> others;
    std::unique_ptr<DuplicatesForm> duplicates;
    std::unique_ptr<configForm> configuration;
    std::unique_ptr<aboutForm> about;
    std::unique_ptr<CircleForm> circle;
    std::unique_ptr<OverTimeForm> overTime;
    std::unique_ptr<LostSightForm> lostSight;
    std::unique_ptr<CommunityForm> community;

 private:
    template <typename Form, typename... Arguments>
    Form& created(std::unique_ptr<Form>& form, const char* name, Arguments&... arguments) {
        if (!form) {
            form = std::make_unique<Form>(arguments...);
            rememberPlace(*form->window, name);
        }
        return *form;
    }

    void openMerge(Database& database, int contactId, const std::string& text);
    void openDetails(Database& database, int contactId, int relatedId);
    void openContact(Database& database, const std::string& address);
    void openFind(Database& database, int sourceId);
    void openFindDomain(Database& database, const std::string& sourceDomain);
    void openCircle(Database& database, int contactId);
    void openOverTime(const Database& database, int contactId, int otherId);
    void openLostSight(Database& database, int contactId);
    void openCommunity(Database& database, const std::vector<int>& chain);
    void selectInView(int contactId);
    void tellOfDamagedHistory();
    void showInView(Database& database, int contactId);
    void openDuplicates(Database& database);
    void openConfiguration(Database& database);
    void refreshBesideView();
    /// Restores where the form was last, now and after each time it is hidden.
    void rememberPlace(Window& window, const char* form);
    void showStep(const Database& database);
    void setUndoKeys(Window& window, Database& database);

    UserInterface ui_;
    Platform platform_;
    Storage& storage_;
    HistoryFile history_{storage_, platform_};
    bool damageTold_ = false;
    /// What all forms hide.
    HiddenContacts hidden_{[this]() -> const History& { return history_.history(); }};
};

}  // namespace pelk
