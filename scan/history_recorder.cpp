#include "scan/history_recorder.h"

#include <set>
#include <string_view>

#include "db/date_stamp.h"

namespace pelk {
namespace {

constexpr int kFirstYear = 1990;
constexpr int kSecondsOfDay = 24 * 60 * 60;

/// A mail client may refuse the date; the e-mail has another one.
std::optional<LocalTime> sentTimeOf(MailItem& item) {
    try {
        return item.sentTime();
    } catch (const Error&) {
        return std::nullopt;
    }
}

}  // namespace

Day dayOfMail(const std::optional<LocalTime>& sent, const LocalTime& created) {
    const bool isPlausible = sent && sent->year >= kFirstYear &&
                             (*sent <= created || earlier(*sent, kSecondsOfDay) <= created);
    return dayOf(isPlausible ? *sent : created);
}

/// An e-mail counts once for each address, however often it names it.
void HistoryRecorder::record(MailItem& item, const MailPeople& people, const LocalTime& created) {
    const std::string& sender = people.sender.address;
    if (!isOwned(sender))
        return;
    const Day day = dayOfMail(sentTimeOf(item), created);
    std::set<std::string_view> seen;
    for (const MailPerson& recipient : people.recipients)
        if (seen.insert(recipient.address).second && isOwned(recipient.address))
            counted.countMail(sender, recipient.address, day);
}

}  // namespace pelk
