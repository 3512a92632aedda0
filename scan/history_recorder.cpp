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
    const std::string sender = isOwned(people.sender.address) ? people.sender.address : "";
    const std::vector<std::string> recipients = recipientsOf(people);
    noteAutomation(counted, ifGiven([&item] { return item.automation(); }), sender, recipients);
    if (inSentMail_ && !sender.empty())
        ++counted.record(sender).inSentMail;
    if (sender.empty() || recipients.empty())
        return;
    const Day day = dayOfMail(ifGiven([&item] { return item.sentTime(); }), created);
    for (const std::string& recipient : recipients)
        counted.countMail(sender, recipient, day);
}

void HistoryRecorder::beginFolder(MailFolder& folder) {
    inSentMail_ = ifGiven([&folder] { return folder.isSentMail(); });
}

void HistoryRecorder::noteAccounts(MailSession& session, const Language& language) {
    for (const std::string& own : ifGiven([&session] { return session.ownAddresses(); }))
        if (const std::string address = language.lowerCase(own); isOwned(address))
            counted.record(address).isAccount = true;
}

/// Returns the addresses that contacts own. An e-mail counts once for each address, however often
/// it names it.
std::vector<std::string> HistoryRecorder::recipientsOf(const MailPeople& people) const {
    std::vector<std::string> owned;
    for (const MailPerson& recipient : people.recipients)
        if (isOwned(recipient.address))
            owned.push_back(recipient.address);
    std::sort(owned.begin(), owned.end());
    owned.erase(std::unique(owned.begin(), owned.end()), owned.end());
    return owned;
}

}  // namespace pelk
