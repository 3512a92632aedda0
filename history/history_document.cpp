#include "history/history_document.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>

#include "db/damaged_data.h"
#include "db/store_date_element.h"

namespace pelk {
namespace {

constexpr std::size_t kNoNumber = std::numeric_limits<std::size_t>::max();

/// The last one whose year has four digits.
constexpr Month kLastMonth = 12 * 9999 + 11;

[[noreturn]] void refuse() {
    throw DamagedData("It does not hold a history of relations.");
}

void append(std::string& text, std::uint64_t number) {
    std::array<char, 20> digits;
    text.append(digits.data(),
                std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

/// Appends the e-mails with another address: its number, the first day, the last day of the last
/// month, and for each month how many months it is after the previous one, and both counts.
void appendExchange(std::string& text, std::size_t other, const Exchange& exchange) {
    const auto appendAfter = [&text](std::string_view separator, auto number) {
        text += separator;
        append(text, static_cast<std::uint64_t>(number));
    };
    appendAfter(text.empty() ? "" : ";", other);
    appendAfter(" ", exchange.first);
    appendAfter(" ", exchange.last % 100);
    Month before = exchange.months.front().month;
    for (const MonthCount& count : exchange.months) {
        appendAfter(" ", count.month - std::exchange(before, count.month));
        appendAfter(":", count.sent);
        appendAfter(",", count.received);
    }
}

void setCount(const XmlElement& element, const char* name, std::uint32_t count) {
    if (count != 0)
        element.setAttribute(name, std::to_string(count));
}

void setText(const XmlElement& element, const char* name, const std::string& text) {
    if (!text.empty())
        element.setAttribute(name, text);
}

/// Returns the number of each address within the document; `kNoNumber` for those that are left out.
std::vector<std::size_t> numbersInUse(const History& history) {
    std::vector<bool> isUsed(history.addressCount());
    for (std::size_t number = 0; number < isUsed.size(); ++number) {
        isUsed[number] = isUsed[number] || !history.recordOf(number).empty();
        history.forEachExchange(number, [&isUsed, number](std::size_t other, const Exchange&) {
            isUsed[number] = isUsed[other] = true;
        });
    }
    std::vector<std::size_t> numbers;
    numbers.reserve(isUsed.size());
    std::size_t next = 0;
    for (const bool used : isUsed)
        numbers.push_back(used ? next++ : kNoNumber);
    return numbers;
}

void appendAddress(const XmlElement& parent, const History& history, std::size_t number,
                   const std::vector<std::size_t>& numbers) {
    const AddressRecord& record = history.recordOf(number);
    const XmlElement element = parent.appendElement("address");
    element.setAttribute("value", history.address(number));
    setCount(element, "sent", record.sent);
    setCount(element, "automatic", record.automatic);
    setText(element, "automaticBy", record.automaticBy);
    setText(element, "listBy", record.listBy);
    setCount(element, "inSentMail", record.inSentMail);
    setCount(element, "account", record.isAccount ? 1 : 0);
    std::string exchanges;
    history.forEachExchange(number, [&](std::size_t other, const Exchange& exchange) {
        appendExchange(exchanges, numbers[other], exchange);
    });
    setText(element, "with", exchanges);
}

void appendAddresses(const XmlElement& parent, const History& history) {
    const std::vector<std::size_t> numbers = numbersInUse(history);
    for (std::size_t number = 0; number < numbers.size(); ++number)
        if (numbers[number] != kNoNumber)
            appendAddress(parent, history, number, numbers);
}

/// Reads numbers, each followed by one character.
class NumberReader {
 public:
    explicit NumberReader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    std::uint32_t number() {
        std::uint32_t number = 0;
        const auto read = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        if (read.ec != std::errc())
            refuse();
        rest_.remove_prefix(static_cast<std::size_t>(read.ptr - rest_.data()));
        return number;
    }
    /// Takes this character if it is next.
    bool take(char character) {
        const bool isNext = !rest_.empty() && rest_.front() == character;
        rest_.remove_prefix(isNext ? 1 : 0);
        return isNext;
    }
    /// Returns how often a character comes before another one, or before the end.
    std::size_t count(char character, char end) const {
        const std::string_view part = rest_.substr(0, rest_.find(end));
        return static_cast<std::size_t>(std::count(part.begin(), part.end(), character));
    }
    std::uint32_t numberBefore(char character) {
        const std::uint32_t before = number();
        if (!take(character))
            refuse();
        return before;
    }

 private:
    std::string_view rest_;
};

/// Reads an attribute that is one number; 0 when it is missing.
std::uint32_t readCount(std::string_view text) {
    NumberReader reader(text);
    const std::uint32_t count = reader.atEnd() ? 0 : reader.number();
    if (!reader.atEnd())
        refuse();
    return count;
}

Day checkedDay(std::uint32_t day) {
    const std::uint32_t month = day / 100 % 100;
    if (day > 99991231 || month < 1 || month > 12 || day % 100 < 1 || day % 100 > 31)
        refuse();
    return static_cast<Day>(day);
}

/// Reads what `appendExchange` has written behind the number of the address.
Exchange readExchange(NumberReader& reader) {
    Exchange exchange;
    exchange.first = checkedDay(reader.numberBefore(' '));
    const std::uint32_t lastDay = reader.number();
    Month month = monthOf(exchange.first);
    exchange.months.reserve(reader.count(':', ';'));
    while (reader.take(' ')) {
        const std::uint32_t gap = reader.numberBefore(':');
        if (exchange.months.empty() != (gap == 0) || gap > kLastMonth)
            refuse();
        month += static_cast<Month>(gap);
        const std::uint32_t sent = reader.numberBefore(',');
        exchange.months.push_back({month, sent, reader.number()});
        // Checked for each month, because the sum of many gaps would overflow.
        if (month > kLastMonth || (sent == 0 && exchange.months.back().received == 0))
            refuse();
    }
    if (exchange.empty() || lastDay > 31)
        refuse();
    const auto numberOfMonth = static_cast<std::uint32_t>(month / 12 * 100 + month % 12 + 1);
    exchange.last = checkedDay(numberOfMonth * 100 + lastDay);
    if (exchange.first > exchange.last)
        refuse();
    return exchange;
}

/// Reads the e-mails of an address with those that have a larger number, in their order.
void readExchanges(History& history, std::size_t number, std::string_view text) {
    NumberReader reader(text);
    std::size_t before = number;
    while (!reader.atEnd()) {
        const std::size_t other = reader.numberBefore(' ');
        if (other <= before || other >= history.addressCount())
            refuse();
        history.addExchange(number, before = other, readExchange(reader));
        if (!reader.take(';') && !reader.atEnd())
            refuse();
    }
}

void readAddress(History& history, const XmlElement& element) {
    const auto [value, sent, automatic, automaticBy, listBy, inSentMail, account] = element.texts(
        "value", "sent", "automatic", "automaticBy", "listBy", "inSentMail", "account");
    const std::size_t next = history.addressCount();
    if (value.empty() || history.numberOf(value) != next)
        refuse();
    history.recordOf(next) = {readCount(sent), readCount(automatic),  automaticBy,
                              listBy,          readCount(inSentMail), readCount(account) != 0};
}

/// Calls `read` with each element of the part of the document.
template <typename Read>
void readPart(const XmlElement& part, std::string_view name, const Read& read) {
    if (!part || part.name() != name)
        refuse();
    for (XmlElement element = part.firstChild(); element; element = element.nextSibling())
        read(element);
}

}  // namespace

std::string textOf(const HistoryContent& content, const MakeXmlDocument& makeDocument) {
    const std::unique_ptr<XmlDocument> document = makeDocument();
    if (!document->loadXml("<pelkHistory/>"))
        throw Error("There is no document for the history of relations.");
    const XmlElement root = document->root();
    root.setAttribute("date", content.date);
    root.setAttribute("unknownSince", content.stores.unknownSince);
    const XmlElement stores = root.appendElement("stores");
    for (const StoreDate& store : content.stores.all())
        appendStoreDate(stores, store);
    const XmlElement own = root.appendElement("own");
    for (const std::string& address : content.ownAddresses)
        own.appendElement("address").setAttribute("value", address);
    appendAddresses(root.appendElement("addresses"), content.history);
    return document->xml();
}

HistoryContent readHistory(std::string text, const MakeXmlDocument& makeDocument) {
    const std::unique_ptr<XmlDocument> document = makeDocument();
    if (!document->loadXml(std::move(text)) || document->root().name() != "pelkHistory")
        refuse();
    const XmlElement root = document->root();
    HistoryContent content;
    content.date = root.text("date");
    content.stores.unknownSince = root.text("unknownSince");
    if (!isStamp(content.date) || !isStamp(content.stores.unknownSince))
        refuse();
    XmlElement part = root.firstChild();
    readPart(part, "stores",
             [&content](const XmlElement& element) { content.stores.add(readStoreDate(element)); });
    part = part.nextSibling();
    readPart(part, "own", [&content](const XmlElement& element) {
        content.ownAddresses.push_back(element.text("value"));
    });
    part = part.nextSibling();
    readPart(part, "addresses",
             [&content](const XmlElement& element) { readAddress(content.history, element); });
    std::size_t number = 0;
    readPart(part, "addresses", [&](const XmlElement& element) {
        readExchanges(content.history, number++, element.text("with"));
    });
    return content;
}

}  // namespace pelk
