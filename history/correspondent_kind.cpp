#include "history/correspondent_kind.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

namespace pelk {
namespace {

/// Names of programs: a local part, or a word of one. Many are also surnames, so a word after a dot
/// does not count.
constexpr std::string_view kRobotWords[] = {
    "alert",     "alerts",       "autoreply",     "autoresponder", "bot",
    "bounce",    "bounces",      "cron",          "daemon",        "listserv",
    "majordomo", "mailer",       "newsletter",    "newsletters",   "notifier",
    "notify",    "notification", "notifications", "postmaster",    "robot",
};
struct RobotName {
    /// Letters anywhere in a local part, whatever is between them.
    std::string_view letters;
    std::string_view name;
};
constexpr RobotName kRobotNames[] = {
    {"noreply", "no-reply"},
    {"donotreply", "do-not-reply"},
    {"dontreply", "do-not-reply"},
    {"mailerdaemon", "mailer-daemon"},
};
/// After the name of a list, the addresses to which its program listens.
constexpr std::string_view kListCommands[] = {"request", "subscribe", "unsubscribe"};
/// The last word of many names of lists, after another one.
constexpr std::string_view kListWords[] = {"announce", "dev", "devel", "discuss", "list", "users"};
/// The number of addresses that never sent anything, for a host of lists.
constexpr int kSilentAtListHost = 10;
/// The first label of hosts that have only mailing lists.
constexpr std::string_view kListHosts[] = {"list", "lists", "listserv", "googlegroups"};

template <std::size_t Count>
bool contains(const std::string_view (&names)[Count], std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

std::string_view localPartOf(std::string_view address) {
    return address.substr(0, address.rfind('@'));
}

std::string_view hostOf(std::string_view address) {
    const std::size_t at = address.rfind('@');
    return at == std::string_view::npos ? std::string_view() : address.substr(at + 1);
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

/// Returns the words between digits and signs other than dots.
std::vector<std::string_view> wordsIn(std::string_view text) {
    const auto isInWord = [](char c) { return isLetter(c) || c == '.'; };
    std::vector<std::string_view> words;
    for (auto at = text.begin(); at != text.end();) {
        const auto begin = std::find_if(at, text.end(), isInWord);
        at = std::find_if_not(begin, text.end(), isInWord);
        if (begin != at)
            words.emplace_back(begin, at);
    }
    return words;
}

std::string_view robotWordIn(std::string_view local) {
    const std::vector<std::string_view> words = wordsIn(local);
    const auto word = std::find_if(words.begin(), words.end(),
                                   [](std::string_view one) { return contains(kRobotWords, one); });
    if (word != words.end())
        return *word;
    if (words.size() > 1 && contains(kListCommands, words.back()))
        return words.back();
    // Answers to a notification go to such an address.
    return local.starts_with("reply+") ? "reply" : "";
}

/// Returns the name of a program in a local part; empty if there is none.
std::string_view robotNameIn(std::string_view local) {
    if (const std::string_view word = robotWordIn(local); !word.empty())
        return word;
    std::string letters(local);
    std::erase_if(letters, [](char c) { return !isLetter(c); });
    for (const RobotName& one : kRobotNames)
        if (letters.find(one.letters) != std::string::npos)
            return one.name;
    return {};
}

bool isListName(std::string_view local) {
    const std::vector<std::string_view> words = wordsIn(local);
    return words.size() > 1 && contains(kListWords, words.back());
}

bool isListHost(std::string_view host) {
    return contains(kListHosts, host.substr(0, host.find('.')));
}

/// Returns the last two labels of a host.
std::string_view endOf(std::string_view host) {
    const std::size_t dot = host.rfind('.');
    const std::size_t before =
        dot == std::string_view::npos || dot == 0 ? dot : host.rfind('.', dot - 1);
    return before == std::string_view::npos ? host : host.substr(before + 1);
}

bool sameLetters(std::string_view a, std::string_view b) {
    const auto lower = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&lower](char x, char y) { return lower(x) == lower(y); });
}

/// Whether the identifier of a list is the address with a dot instead of the "@", as it usually is.
bool isIdOf(std::string_view listId, std::string_view address) {
    const std::string_view local = localPartOf(address);
    return local.size() < address.size() && listId.size() == address.size() &&
           sameLetters(listId.substr(0, local.size()), local) && listId[local.size()] == '.' &&
           sameLetters(listId.substr(local.size() + 1), hostOf(address));
}

/// Whether the identifier begins with the local part of the address, in the same domain:
/// "users.lists.example.org" and users@example.org.
bool isIdNear(std::string_view listId, std::string_view address) {
    const std::string_view local = localPartOf(address);
    return !local.empty() && listId.size() > local.size() && listId[local.size()] == '.' &&
           sameLetters(listId.substr(0, local.size()), local) &&
           sameLetters(endOf(listId), endOf(hostOf(address)));
}

/// Returns the field that names the address as a mailing list; empty if none does.
std::string listFieldOf(const std::string& address, const MailAutomation& automation,
                        bool isRecipient) {
    for (const NamedList& list : automation.lists)
        if (sameLetters(list.address, address))
            return list.field;
    const std::string& id = automation.listId;
    return isIdOf(id, address) || (isRecipient && isIdNear(id, address)) ? "List-Id" : "";
}

/// Returns the field that says that a program sent the e-mail; empty if a person may have. Vacation
/// notices (auto-replied) come from people.
std::string automaticFieldOf(const MailAutomation& automation, bool throughList) {
    if (automation.autoSubmitted == "auto-generated" || automation.autoSubmitted == "auto-notified")
        return "Auto-Submitted";
    if (throughList || automation.precedence == "list")
        return {};
    if (automation.canUnsubscribe)
        return "List-Unsubscribe";
    // Programs for vacation notices set it, too.
    if (automation.autoSubmitted == "auto-replied")
        return {};
    return automation.precedence == "bulk" || automation.precedence == "junk" ? "Precedence" : "";
}

}  // namespace

const char* nameOf(CorrespondentKind kind) {
    switch (kind) {
        case CorrespondentKind::List:
            return "list";
        case CorrespondentKind::Robot:
            return "robot";
        case CorrespondentKind::Person:
            break;
    }
    return "person";
}

ListHosts listHostsIn(const History& history) {
    struct Host {
        bool hasList = false;
        bool hasWriter = false;
        int silent = 0;
    };
    std::map<std::string_view, Host> hosts;
    for (std::size_t number = 0; number < history.addressCount(); ++number) {
        const AddressRecord& record = history.recordOf(number);
        Host& host = hosts[hostOf(history.address(number))];
        host.hasList = host.hasList || !record.listBy.empty();
        host.hasWriter = host.hasWriter || (record.listBy.empty() && record.sent > 0);
        host.silent += record.listBy.empty() ? 1 : 0;
    }
    ListHosts found;
    for (const auto& [name, host] : hosts)
        if (host.hasList && !host.hasWriter && host.silent >= kSilentAtListHost)
            found.emplace(name);
    return found;
}

Correspondent kindOfAddress(const std::string& address, const AddressRecord& record,
                            const ListHosts& listHosts) {
    if (!record.listBy.empty())
        return {CorrespondentKind::List, record.listBy + " in its e-mails"};
    if (const std::string_view name = robotNameIn(localPartOf(address)); !name.empty())
        return {CorrespondentKind::Robot, "named " + std::string(name)};
    if (record.automatic > record.sent / 2)
        return {CorrespondentKind::Robot, record.automaticBy + " in its e-mails"};
    // A person with such an address writes from it at some time.
    const std::string_view host = hostOf(address);
    if (record.sent == 0 && (isListHost(host) || listHosts.contains(host)))
        return {CorrespondentKind::List, "on the host " + std::string(host)};
    if (record.sent == 0 && isListName(localPartOf(address)))
        return {CorrespondentKind::List, "named " + std::string(localPartOf(address))};
    return {};
}

Correspondent kindOfContact(const Contact& contact, const History& history,
                            const ListHosts& listHosts) {
    Correspondent first;
    for (const std::string& address : contact.addresses) {
        const AddressRecord* const record = history.findRecord(address);
        const Correspondent one =
            kindOfAddress(address, record ? *record : AddressRecord(), listHosts);
        if (one.kind == CorrespondentKind::Person)
            return {};
        if (first.kind == CorrespondentKind::Person)
            first = one;
    }
    return first;
}

void noteAutomation(History& history, const MailAutomation& automation,
                    std::optional<std::size_t> sender, std::span<const std::size_t> recipients) {
    bool throughList = !automation.lists.empty();
    for (const std::size_t recipient : recipients) {
        std::string field = listFieldOf(history.address(recipient), automation, true);
        if (field.empty())
            continue;
        throughList = true;
        history.recordOf(recipient).listBy = std::move(field);
    }
    if (!sender)
        return;
    AddressRecord& record = history.recordOf(*sender);
    ++record.sent;
    if (std::string field = automaticFieldOf(automation, throughList); !field.empty()) {
        ++record.automatic;
        record.automaticBy = std::move(field);
    }
    if (std::string field = listFieldOf(history.address(*sender), automation, false);
        !field.empty())
        record.listBy = std::move(field);
}

}  // namespace pelk
