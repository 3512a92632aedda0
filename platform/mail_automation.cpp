#include "platform/mail_automation.h"

#include <algorithm>
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
    if (isAddress(address))
        lists.push_back({std::string(field), std::string(address.substr(0, kMostText))});
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

}  // namespace

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
