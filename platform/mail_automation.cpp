#include "platform/mail_automation.h"

#include <algorithm>
#include <map>
#include <utility>

namespace pelk {
namespace {

/// In bytes. No real value is longer, and nothing below keeps more of a hostile one.
constexpr std::size_t kMostText = 400;
constexpr std::string_view kBlanks = " \t\r\n";

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

/// Returns the first word, which ends at a blank, a parameter or a comment.
std::string firstWord(std::string_view value) {
    value.remove_prefix(std::min(value.find_first_not_of(kBlanks), value.size()));
    return lowerCase(value.substr(0, std::min(value.find_first_of(" \t;("), kMostText)));
}

std::string firstWord(const std::vector<std::string>& values) {
    return values.empty() ? std::string() : firstWord(values.front());
}

/// Returns the last text in angle brackets, because a phrase comes before; otherwise all of it.
std::string_view bracketed(std::string_view value) {
    const std::size_t open = value.rfind('<');
    if (open != std::string_view::npos)
        value.remove_prefix(open + 1);
    value = value.substr(0, value.find('>'));
    value.remove_prefix(std::min(value.find_first_not_of(kBlanks), value.size()));
    return value.substr(0, std::min(value.find_first_of(kBlanks), kMostText));
}

bool isAddress(std::string_view text) {
    const std::size_t at = text.find('@');
    return at != std::string_view::npos && at > 0 && at + 1 < text.size();
}

void addList(std::vector<NamedList>& lists, std::string_view field, std::string_view address) {
    address = address.substr(0, kMostText);
    if (isAddress(address))
        lists.push_back({std::string(field), std::string(address)});
}

/// The field holds addresses in the web, "mailto:" among them, or NO where nobody may post.
void addPosts(std::vector<NamedList>& lists, std::string_view field, std::string_view value) {
    constexpr std::string_view kMailto = "mailto:";
    const std::size_t begin = lowerCase(value.substr(0, kMostText)).find(kMailto);
    if (begin == std::string::npos)
        return;
    value.remove_prefix(begin + kMailto.size());
    addList(lists, field, value.substr(0, value.find_first_of(">?, \t")));
}

/// Takes the first field with its continuation lines from a header, without the last line end.
std::string_view takeField(std::string_view& header) {
    std::size_t end = 0;
    do {
        end = std::min(header.find('\n', end), header.size() - 1) + 1;
    } while (end < header.size() && (header[end] == ' ' || header[end] == '\t'));
    const std::string_view field = header.substr(0, header.find_last_not_of(kBlanks, end - 1) + 1);
    header.remove_prefix(end);
    return field;
}

std::string unfolded(std::string_view value) {
    std::string text(value);
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    return text;
}

}  // namespace

MailAutomation automationInHeader(std::string_view header) {
    std::map<std::string, std::vector<std::string>, std::less<>> values;
    while (!header.empty()) {
        const std::string_view field = takeField(header);
        const std::string_view name = field.substr(0, std::min(field.find(':'), kMostText));
        const auto* const known =
            std::find_if(kAutomationFields.begin(), kAutomationFields.end(),
                         [&](std::string_view one) { return lowerCase(one) == lowerCase(name); });
        if (known != kAutomationFields.end() && name.size() < field.size())
            values[std::string(*known)].push_back(unfolded(field.substr(name.size() + 1)));
    }
    return readAutomation([&values](std::string_view name) {
        const auto found = values.find(name);
        return found == values.end() ? std::vector<std::string>() : found->second;
    });
}

MailAutomation readAutomation(
    const std::function<std::vector<std::string>(std::string_view name)>& valuesOf) {
    MailAutomation automation;
    for (const std::string& value : valuesOf("List-Post"))
        addPosts(automation.lists, "List-Post", value);
    for (const char* const field : {"X-Mailing-List", "X-BeenThere"})
        for (const std::string& value : valuesOf(field))
            addList(automation.lists, field, bracketed(value));
    if (const std::vector<std::string> ids = valuesOf("List-Id"); !ids.empty())
        automation.listId = bracketed(ids.front());
    automation.canUnsubscribe = !valuesOf("List-Unsubscribe").empty();
    automation.precedence = firstWord(valuesOf("Precedence"));
    automation.autoSubmitted = firstWord(valuesOf("Auto-Submitted"));
    return automation;
}

}  // namespace pelk
