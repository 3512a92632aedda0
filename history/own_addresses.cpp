#include "history/own_addresses.h"

#include <algorithm>
#include <cstdint>

#include "history/correspondent_kind.h"

namespace pelk {
namespace {

/// An address with fewer e-mails than this part of the most is that of somebody else, whose e-mails
/// the user has filed there.
constexpr std::uint32_t kLeastPart = 20;

bool isPerson(const History& history, std::size_t number) {
    return kindOfAddress(history.address(number), history.recordOf(number)).kind ==
           CorrespondentKind::Person;
}

std::string reasonOf(const AddressRecord& record) {
    return record.isAccount ? "an account of the mail program" : "in folders for sent mail";
}

std::vector<std::size_t> sendersOfSentMail(const History& history) {
    std::uint32_t most = 0;
    for (std::size_t number = 0; number < history.addressCount(); ++number)
        most = std::max(most, history.recordOf(number).inSentMail);
    std::vector<std::size_t> senders;
    for (std::size_t number = 0; number < history.addressCount(); ++number) {
        const AddressRecord& record = history.recordOf(number);
        const bool sends = record.inSentMail > most / kLeastPart && isPerson(history, number);
        if (sends || record.isAccount)
            senders.push_back(number);
    }
    std::stable_sort(senders.begin(), senders.end(), [&history](std::size_t a, std::size_t b) {
        return history.recordOf(a).inSentMail > history.recordOf(b).inSentMail;
    });
    return senders;
}

/// Returns the numbers of e-mails of all addresses.
std::vector<std::uint64_t> mailsOf(const History& history) {
    std::vector<std::uint64_t> mails(history.addressCount());
    for (std::size_t number = 0; number < mails.size(); ++number)
        history.forEachExchange(
            number, [&mails, number](std::size_t other, const Exchange& exchange) {
                const std::uint64_t count = exchange.sent() + exchange.received();
                mails[number] += count;
                mails[other] += count;
            });
    return mails;
}

std::vector<OwnAddress> mostFrequentPerson(const History& history) {
    const std::vector<std::uint64_t> mails = mailsOf(history);
    std::vector<OwnAddress> found;
    std::uint64_t most = 0;
    for (std::size_t number = 0; number < mails.size(); ++number) {
        if (mails[number] <= most || !isPerson(history, number))
            continue;
        most = mails[number];
        found = {{history.address(number), "a guess: takes part in the most e-mails"}};
    }
    return found;
}

}  // namespace

std::vector<OwnAddress> findOwnAddresses(const History& history) {
    std::vector<OwnAddress> found;
    for (const std::size_t number : sendersOfSentMail(history))
        found.push_back({history.address(number), reasonOf(history.recordOf(number))});
    return found.empty() ? mostFrequentPerson(history) : found;
}

}  // namespace pelk
