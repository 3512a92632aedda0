// Fuzzes the document of a history, and what is done with a history that was read.

#include "fuzz/fuzz.h"
#include "history/correspondent_kind.h"
#include "history/history_document.h"
#include "history/own_addresses.h"

namespace pelk {
namespace {

std::optional<HistoryContent> read(std::string_view text) {
    try {
        return readHistory(std::string(text), createPugiDocument);
    } catch (const Error&) {
        return std::nullopt;
    }
}

void requireSound(const Exchange& exchange) {
    require(!exchange.empty() && exchange.first <= exchange.last, "the days are in order");
    require(monthOf(exchange.first) == exchange.months.front().month &&
                monthOf(exchange.last) == exchange.months.back().month,
            "the days belong to the first and the last month");
    Month before = -1;
    for (const MonthCount& count : exchange.months) {
        require(std::exchange(before, count.month) < count.month, "months are in order");
        require(count.sent != 0 || count.received != 0, "no month is empty");
    }
}

void requireRoundTrip(const HistoryContent& content) {
    const std::string text = textOf(content, createPugiDocument);
    const std::optional<HistoryContent> again = read(text);
    require(again.has_value(), "a written history is accepted", text);
    require(again->history == content.history && again->ownAddresses == content.ownAddresses,
            "a history round-trips unchanged", text);
    require(textOf(*again, createPugiDocument) == text, "a document round-trips unchanged", text);
}

/// Adds the history to an empty one, and reverts that.
void requireAddition(const History& history) {
    History sum;
    HistoryChange change = sum.additionOf(history);
    sum.swap(change);
    require(sum == history, "an addition adds everything");
    sum.swap(change);
    require(sum.empty(), "an addition can be reverted");
    sum.swap(change);
    sum.add(history);
    sum.keepOnly([](const std::string&) { return false; });
    require(sum.empty(), "nothing remains of addresses that are gone");
}

void requireKinds(const History& history) {
    const ListHosts hosts = listHostsIn(history);
    history.forEachAddress([&](const std::string& address) {
        const AddressRecord* const record = history.findRecord(address);
        const Correspondent kind =
            kindOfAddress(address, record ? *record : AddressRecord(), hosts);
        require((kind.kind == CorrespondentKind::Person) == kind.reason.empty(),
                "all but people have a reason", kind.reason);
    });
    for (const OwnAddress& own : findOwnAddresses(history))
        require(!own.reason.empty(), "an own address has a reason", own.address);
}

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pelk;
    const std::optional<HistoryContent> content = read(textOf(data, size));
    if (!content)
        return 0;
    const History& history = content->history;
    for (std::size_t number = 0; number < history.addressCount(); ++number)
        history.forEachExchange(
            number, [](std::size_t, const Exchange& exchange) { requireSound(exchange); });
    requireRoundTrip(*content);
    requireAddition(history);
    requireKinds(history);
    return 0;
}
