#include "db/store_dates_file.h"

#include <algorithm>
#include <utility>

#include "db/damaged_data.h"
#include "db/store_date_element.h"

namespace pelk {
namespace {

constexpr const char* kName = "pelk-stores.db";

/// The maximum number of states in the file. Two suffice for a crash between the two saves; the
/// others are for databases that the user restores, and for several failed saves.
constexpr std::size_t kStates = 6;

}  // namespace

LoadedStoreDates StoreDatesFile::load(const Database& database) {
    std::optional<std::string> notice = readOrNotice(database.date());
    if (!takeMatching(database))
        states_.push_back(stateOf(database, assume(database.date())));
    return {states_.back().dates, std::move(notice)};
}

void StoreDatesFile::hold(const StoreDates& dates, const Database& database) {
    states_.push_back(stateOf(database, dates));
    if (states_.size() > kStates)
        states_.erase(states_.begin(), states_.end() - kStates);
    // A mail client whose stores have no places needs no file.
    if (std::any_of(states_.begin(), states_.end(),
                    [](const State& state) { return !state.dates.all().empty(); }))
        storage_.holdBeside(kName, text());
}

StoreDatesFile::State StoreDatesFile::stateOf(const Database& database, StoreDates dates) {
    return {database.date(), database.totalMails(), std::move(dates)};
}

/// Reads the file. Returns the message for the user when it is damaged.
std::optional<std::string> StoreDatesFile::readOrNotice(const std::string& date) {
    try {
        read();
        return std::nullopt;
    } catch (const DamagedData& error) {
        return std::string(error.what()) +
               " It will be replaced; this scan counts the e-mails that came after the last one, " +
               date + ".";
    }
}

void StoreDatesFile::read() {
    std::optional<std::string> content = storage_.readBeside(kName);
    if (!content)
        return;
    const std::unique_ptr<XmlDocument> document = platform_.createXmlDocument();
    if (!document->loadXml(std::move(*content)) || document->root().name() != "pelkStores")
        throw DamagedData("The file " + std::string(kName) +
                          " does not hold the dates of mail stores.");
    for (XmlElement element = document->root().firstChild(); element;
         element = element.nextSibling()) {
        State state{element.text("date"), element.text("mails"), {}};
        state.dates.unknownSince = element.text("unknownSince");
        for (XmlElement store = element.firstChild(); store; store = store.nextSibling())
            state.dates.add(readStoreDate(store));
        states_.push_back(std::move(state));
    }
    fileIsUsable_ = true;
}

/// Makes the dates of that state of the database the latest ones. Returns false when there are
/// none. The counter distinguishes two scans within one second; an import changes it, but not the
/// date.
bool StoreDatesFile::takeMatching(const Database& database) {
    if (database.date() == kNeverScanned)
        return false;
    const auto last = [this](const auto& matches) {
        return std::find_if(states_.rbegin(), states_.rend(), matches);
    };
    const auto sameDate = [&database](const State& state) { return state.date == database.date(); };
    auto found = last([&](const State& state) {
        return sameDate(state) && state.mails == database.totalMails();
    });
    if (found == states_.rend())
        found = last(sameDate);
    if (found == states_.rend())
        return false;
    std::rotate(std::prev(found.base()), found.base(), states_.end());
    return true;
}

/// The latest state tells nothing of the database if it knows no store of that time: the user has
/// deleted the database, scanned anew and restored an old one.
StoreDates StoreDatesFile::assume(const std::string& date) const {
    StoreDates dates;
    if (date == kNeverScanned)
        return dates;
    const auto wasCounted = [&date](const StoreDate& store) { return store.first <= date; };
    if (fileIsUsable_ && !states_.empty() &&
        std::any_of(states_.back().dates.all().begin(), states_.back().dates.all().end(),
                    wasCounted)) {
        dates = states_.back().dates;
        dates.forgetAfter(date);
    } else {
        dates.unknownSince = date;
    }
    return dates;
}

std::string StoreDatesFile::text() const {
    const std::unique_ptr<XmlDocument> document = platform_.createXmlDocument();
    if (!document->loadXml("<pelkStores/>"))
        throw Error("There is no document for the dates of the mail stores.");
    for (const State& state : states_) {
        const XmlElement element = document->root().appendElement("state");
        element.setAttribute("date", state.date);
        element.setAttribute("mails", state.mails);
        element.setAttribute("unknownSince", state.dates.unknownSince);
        for (const StoreDate& store : state.dates.all())
            appendStoreDate(element, store);
    }
    return document->xml();
}

}  // namespace pelk
