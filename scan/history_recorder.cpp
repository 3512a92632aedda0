#include "scan/history_recorder.h"

#include <algorithm>

#include "db/date_stamp.h"
#include "history/correspondent_kind.h"

namespace pelk {
namespace {

constexpr int kFirstYear = 1990;
constexpr int kSecondsOfDay = 24 * 60 * 60;

/// Returns the result of `ask`, or an empty one when the mail client refuses: the e-mail counts
/// without it.
template <typename Ask>
auto ifGiven(const Ask& ask) -> decltype(ask()) {
    try {
        return ask();
    } catch (const Error&) {
        return {};
    }
}

}  // namespace

Day dayOfMail(const std::optional<LocalTime>& sent, const LocalTime& created) {
    const bool isPlausible = sent && sent->year >= kFirstYear &&
                             (*sent <= created || earlier(*sent, kSecondsOfDay) <= created);
    return dayOf(isPlausible ? *sent : created);
}

void HistoryRecorder::record(MailItem& item, const MailPeople& people, const LocalTime& created) {
    const std::optional<std::size_t> sender = numberIfOwned(people.sender.address);
    const std::vector<std::size_t> recipients = recipientsOf(people);
    noteAutomation(counted, ifGiven([&item] { return item.automation(); }), sender, recipients);
    if (inSentMail_ && sender)
        ++counted.recordOf(*sender).inSentMail;
    if (!sender || recipients.empty())
        return;
    const Day day = dayOfMail(ifGiven([&item] { return item.sentTime(); }), created);
    for (const std::size_t recipient : recipients)
        counted.countMail(*sender, recipient, day);
}

void HistoryRecorder::beginFolder(MailFolder& folder) {
    inSentMail_ = ifGiven([&folder] { return folder.isSentMail(); });
}

void HistoryRecorder::noteAccounts(MailSession& session, const Language& language) {
    for (const std::string& own : ifGiven([&session] { return session.ownAddresses(); }))
        if (const auto number = numberIfOwned(language.lowerCase(own)))
            counted.recordOf(*number).isAccount = true;
}

/// Returns the number of an address; nothing when no contact owns it. An address that has a number
/// is owned, because a scan takes no address from a contact.
std::optional<std::size_t> HistoryRecorder::numberIfOwned(const std::string& address) {
    if (const std::optional<std::size_t> known = counted.findNumber(address))
        return known;
    return database_.ownerOf(address) != 0 ? std::optional(counted.numberOf(address))
                                           : std::nullopt;
}

/// Returns the addresses that contacts own. An e-mail counts once for each address, however often
/// it names it.
std::vector<std::size_t> HistoryRecorder::recipientsOf(const MailPeople& people) {
    std::vector<std::size_t> owned;
    for (const MailPerson& recipient : people.recipients)
        if (const auto number = numberIfOwned(recipient.address))
            owned.push_back(*number);
    std::sort(owned.begin(), owned.end());
    owned.erase(std::unique(owned.begin(), owned.end()), owned.end());
    return owned;
}

}  // namespace pelk
