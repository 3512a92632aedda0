#pragma once
// What the header of an e-mail says about mailing lists, and about programs that send e-mails by
// themselves.

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

/// A header field that names a mailing list by its address, such as List-Post.
struct NamedList {
    std::string field;
    std::string address;

    friend bool operator==(const NamedList&, const NamedList&) = default;
};

/// Texts are as the header has them, without comments and blanks at their ends.
struct MailAutomation {
    std::vector<NamedList> lists;
    /// The identifier in List-Id (RFC 2919), such as "users.lists.example.org".
    std::string listId;
    /// Whether there is a List-Unsubscribe (RFC 2369).
    bool canUnsubscribe = false;
    /// In lower case: the first word of Precedence, and of Auto-Submitted (RFC 3834).
    std::string precedence;
    std::string autoSubmitted;

    friend bool operator==(const MailAutomation&, const MailAutomation&) = default;
};

/// The header fields that `readAutomation` asks for.
inline constexpr std::array<std::string_view, 7> kAutomationFields = {
    "List-Post",        "X-Mailing-List", "X-BeenThere",   "List-Id",
    "List-Unsubscribe", "Precedence",     "Auto-Submitted"};

/// Reads the fields. `valuesOf` returns the unfolded values of all fields of a name. Never fails.
/// Thread-safe.
MailAutomation readAutomation(
    const std::function<std::vector<std::string>(std::string_view name)>& valuesOf);

/// Reads them from the text of a header.
MailAutomation automationInHeader(std::string_view header);

}  // namespace pelk
