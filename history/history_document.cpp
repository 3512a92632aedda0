#include "history/history_document.h"

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

/// The end of a document without pairs.
constexpr std::string_view kEnd = "<pairs/></pelkHistory>";

constexpr std::size_t kNoNumber = std::numeric_limits<std::size_t>::max();

[[noreturn]] void refuse() {
    throw DamagedData("It does not hold a history of relations.");
}

void append(std::string& text, std::uint64_t number) {
    std::array<char, 20> digits;
    text.append(digits.data(),
                std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

int numberOfMonth(Month month) {
    return month / 12 * 100 + month % 12 + 1;
}

/// Appends an element. It holds digits only, so there is nothing to escape; a library takes several
/// times as long to make as many elements.
void appendPair(std::string& text, std::size_t number, std::size_t other,
                const Exchange& exchange) {
    const auto attribute = [&text](std::string_view start, std::uint64_t value) {
        text += start;
        append(text, value);
    };
    attribute("<pair one=\"", number);
    attribute("\" other=\"", other);
    attribute("\" first=\"", static_cast<std::uint64_t>(exchange.first));
    attribute("\" last=\"", static_cast<std::uint64_t>(exchange.last));
    std::string_view before = "\" months=\"";
    for (const MonthCount& count : exchange.months) {
        attribute(std::exchange(before, " "),
                  static_cast<std::uint64_t>(numberOfMonth(count.month)));
        attribute(":", count.sent);
        attribute(",", count.received);
    }
    text += "\"/>";
}

void setCount(const XmlElement& element, const char* name, std::uint32_t count) {
    if (count != 0)
        element.setAttribute(name, std::to_string(count));
}

void setText(const XmlElement& element, const char* name, const std::string& text) {
    if (!text.empty())
        element.setAttribute(name, text);
}

void appendAddress(const XmlElement& parent, const std::string& address,
                   const AddressRecord& record) {
    const XmlElement element = parent.appendElement("address");
    element.setAttribute("value", address);
    setCount(element, "sent", record.sent);
    setCount(element, "automatic", record.automatic);
    setText(element, "automaticBy", record.automaticBy);
    setText(element, "listBy", record.listBy);
    setCount(element, "inSentMail", record.inSentMail);
    setCount(element, "account", record.isAccount ? 1 : 0);
}

/// Appends the addresses in use, and returns the number of each within the document.
std::vector<std::size_t> appendAddresses(const XmlElement& parent, const History& history) {
    std::vector<bool> isUsed(history.addressCount());
    history.forEachExchange([&isUsed](std::size_t number, std::size_t other, const Exchange&) {
        isUsed[number] = isUsed[other] = true;
    });
    std::vector<std::size_t> numbers(history.addressCount(), kNoNumber);
    std::size_t next = 0;
    for (std::size_t number = 0; number < numbers.size(); ++number) {
        const AddressRecord& record = history.recordOf(number);
        if (!isUsed[number] && record.empty())
            continue;
        appendAddress(parent, history.address(number), record);
        numbers[number] = next++;
    }
    return numbers;
}

/// Reads numbers with single characters between them.
class NumberReader {
 public:
    explicit NumberReader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    /// Reads a number and the character behind it; the last number ends the text.
    std::uint32_t take(char end) {
        std::uint32_t number = 0;
        const auto read = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        rest_.remove_prefix(static_cast<std::size_t>(read.ptr - rest_.data()));
        if (read.ec != std::errc() || (!rest_.empty() && rest_.front() != end))
            refuse();
        rest_.remove_prefix(rest_.empty() ? 0 : 1);
        return number;
    }

 private:
    std::string_view rest_;
};

/// Reads an attribute that is one number; 0 when it is missing.
std::uint32_t readCount(std::string_view text) {
    return text.empty() ? 0 : NumberReader(text).take('\0');
}

Day readDay(std::string_view text) {
    const std::uint32_t day = readCount(text);
    const std::uint32_t month = day / 100 % 100;
    if (day > 99991231 || month < 1 || month > 12 || day % 100 < 1 || day % 100 > 31)
        refuse();
    return static_cast<Day>(day);
}

std::vector<MonthCount> readMonths(std::string_view text) {
    std::vector<MonthCount> months;
    NumberReader reader(text);
    while (!reader.atEnd()) {
        const Month month = monthOf(readDay(std::to_string(reader.take(':')) + "01"));
        const std::uint32_t sent = reader.take(',');
        months.push_back({month, sent, reader.take(' ')});
        if (months.size() > 1 && months[months.size() - 2].month >= month)
            refuse();
    }
    return months;
}

void readPair(History& history, const XmlElement& element) {
    const auto [one, other, first, last, months] =
        element.texts("one", "other", "first", "last", "months");
    const std::size_t number = readCount(one);
    const std::size_t otherNumber = readCount(other);
    if (std::max(number, otherNumber) >= history.addressCount() || number == otherNumber)
        refuse();
    Exchange exchange{readDay(first), readDay(last), readMonths(months)};
    if (exchange.empty())
        refuse();
    history.addExchange(number, otherNumber, std::move(exchange));
}

void readAddress(History& history, const XmlElement& element) {
    const auto [value, sent, automatic, automaticBy, listBy, inSentMail, account] = element.texts(
        "value", "sent", "automatic", "automaticBy", "listBy", "inSentMail", "account");
    const std::size_t next = history.addressCount();
    if (value.empty() || history.numberOf(value) != next)
        refuse();
    history.record(value) = {readCount(sent), readCount(automatic),  automaticBy,
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
    const std::vector<std::size_t> numbers =
        appendAddresses(root.appendElement("addresses"), content.history);
    root.appendElement("pairs");
    std::string text = document->xml();
    text.resize(text.rfind(kEnd));
    text += "<pairs>";
    content.history.forEachExchange(
        [&](std::size_t number, std::size_t other, const Exchange& exchange) {
            appendPair(text, numbers[number], numbers[other], exchange);
        });
    return text + "</pairs></pelkHistory>";
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
    part = part.nextSibling();
    readPart(part, "pairs",
             [&content](const XmlElement& element) { readPair(content.history, element); });
    return content;
}

}  // namespace pelk
