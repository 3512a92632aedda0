#include "maintenance/person_name.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>

namespace pelk {
namespace {

using Words = std::vector<std::string>;

constexpr std::array kTitles{"dr",  "prof", "mr",  "mrs", "miss", "herr", "frau", "dipl", "ing",
                             "phd", "md",   "msc", "mba", "esq",  "sir",  "mag",  "cpa"};
constexpr std::array kGenerations{"jr", "sr", "ii", "iii", "iv"};

/// A name with one of these is not that of one person.
constexpr std::array kNoPerson{"and",     "und",    "via",      "behalf",       "team",
                               "support", "sales",  "service",  "services",     "customer",
                               "list",    "group",  "info",     "newsletter",   "notifications",
                               "reply",   "office", "helpdesk", "notification", "noreply",
                               "billing", "news",   "alerts",   "accounts"};
constexpr std::array kRoles{
    "info",       "support",  "sales",   "service",       "admin",        "office",   "contact",
    "noreply",    "reply",    "bounce",  "bounces",       "newsletter",   "news",     "billing",
    "accounts",   "jobs",     "hr",      "help",          "helpdesk",     "mail",     "marketing",
    "webmaster",  "root",     "hello",   "notifications", "notification", "customer", "team",
    "postmaster", "abuse",    "daemon",  "donotreply",    "orders",       "order",    "press",
    "list",       "security", "invoice", "owner",         "request",      "alerts",   "updates"};

template <std::size_t size>
bool contains(const std::array<const char*, size>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || static_cast<unsigned char>(byte) >= 0x80;
}

/// An initial is one letter of an alphabet, at most two bytes of UTF-8. One character of three
/// bytes, as in Chinese, is a name.
bool isInitial(std::string_view part) {
    return part.size() == 1 || (part.size() == 2 && static_cast<unsigned char>(part[0]) >= 0xc0);
}

std::string_view initialOf(std::string_view part) {
    const auto byte = static_cast<unsigned char>(part[0]);
    return part.substr(0, byte < 0x80 ? 1 : byte < 0xe0 ? 2 : 3);
}

/// Splits at all that is no letter, except at the characters in `within`, which vanish.
Words wordsOf(std::string_view text, std::string_view within) {
    Words words(1);
    for (const char byte : text)
        if (isLetter(byte))
            words.back() += byte;
        else if (within.find(byte) == std::string_view::npos && !words.back().empty())
            words.emplace_back();
    if (words.back().empty())
        words.pop_back();
    return words;
}

std::string withPlainApostrophes(std::string text) {
    constexpr std::string_view kApostrophe = "\xe2\x80\x99";
    for (std::size_t at = 0; (at = text.find(kApostrophe, at)) != std::string::npos;)
        text.replace(at, kApostrophe.size(), "'");
    return text;
}

/// Separates what stands in brackets from the rest.
std::pair<std::string, std::string> splitBrackets(std::string_view text) {
    std::pair<std::string, std::string> parts;
    int depth = 0;
    for (const char byte : text) {
        const bool closes = byte == ')' || byte == ']' || byte == '}';
        depth += byte == '(' || byte == '[' || byte == '{' ? 1 : 0;
        (depth > 0 || closes ? parts.second : parts.first) += byte;
        depth -= closes && depth > 0 ? 1 : 0;
    }
    return parts;
}

/// Moves a generation out of the words and removes titles.
void takeTitles(Words& words, std::string& generation) {
    std::erase_if(words, [&generation](const std::string& word) {
        if (contains(kGenerations, word))
            generation = word;
        return contains(kGenerations, word) || contains(kTitles, word);
    });
}

/// O'Brien and Jean-Luc are one word.
constexpr std::string_view kWithinNames = "'-";

std::optional<PersonName> nameOf(std::string_view text, std::string_view within = kWithinNames) {
    PersonName name;
    Words before = wordsOf(text.substr(0, text.find(',')), within);
    Words after = wordsOf(text.substr(std::min(text.find(','), text.size())), within);
    takeTitles(before, name.generation);
    takeTitles(after, name.generation);
    name.parts = std::move(after);
    std::move(before.begin(), before.end(), std::back_inserter(name.parts));
    const bool isPerson =
        std::none_of(name.parts.begin(), name.parts.end(),
                     [](const std::string& word) { return contains(kNoPerson, word); });
    if (name.parts.size() < 2 || !isPerson || text.find_first_of("@&") != std::string_view::npos)
        return std::nullopt;
    for (std::string& part : name.parts)
        part = withoutDigraphs(part);
    if (isInitial(name.first()) && isInitial(name.last()))
        return std::nullopt;
    return name;
}

bool partsAgree(const std::string& one, const std::string& other) {
    return one == other || (isInitial(one) && initialOf(other) == one) ||
           (isInitial(other) && initialOf(one) == other);
}

/// Two initials are not enough.
bool endsAgree(const std::string& one, const std::string& last, const std::string& otherOne,
               const std::string& otherLast) {
    return partsAgree(one, otherOne) && partsAgree(last, otherLast) &&
           ((one == otherOne && !isInitial(one)) || (last == otherLast && !isInitial(last)));
}

bool middlesAgree(const PersonName& one, const PersonName& other) {
    const bool isLonger = one.parts.size() > other.parts.size();
    const Words& longer = isLonger ? one.parts : other.parts;
    const Words& shorter = isLonger ? other.parts : one.parts;
    return std::all_of(shorter.begin() + 1, shorter.end() - 1, [&longer](const std::string& part) {
        return std::any_of(longer.begin() + 1, longer.end() - 1,
                           [&part](const std::string& same) { return partsAgree(part, same); });
    });
}

}  // namespace

std::string withoutDigraphs(std::string_view word) {
    std::string plain;
    for (const char byte : word) {
        const char before = plain.empty() ? '\0' : plain.back();
        const bool endsDigraph = (byte == 'e' && (before == 'a' || before == 'o' || before == 'u'));
        if (!(endsDigraph || (byte == 'a' && before == 'a')) || word.size() < 3)
            plain += byte;
    }
    return plain;
}

bool PersonName::isFull() const {
    return !isInitial(first()) && !isInitial(last());
}

std::string PersonName::key() const {
    return std::min(first(), last()) + ' ' + std::max(first(), last());
}

std::vector<std::string> PersonName::initialKeys() const {
    std::vector<std::string> keys;
    for (const auto& [other, surname] : {std::pair(first(), last()), std::pair(last(), first())})
        if (!isInitial(surname))
            keys.push_back(std::string(initialOf(other)) + ' ' + surname);
    return keys;
}

std::vector<std::string> PersonName::compactForms() const {
    const std::string initial(initialOf(first()));
    if (!isFull())
        return {first() + last(), last() + first()};
    return {first() + last(), last() + first(), initial + last(), last() + initial,
            first() + std::string(initialOf(last()))};
}

std::optional<PersonName> readPersonName(std::string_view text, const Language& language) {
    const auto [plain, inBrackets] = splitBrackets(withPlainApostrophes(language.folded(text)));
    std::optional<PersonName> name = nameOf(plain);
    return name || wordsOf(plain, kWithinNames).size() > 1 ? name : nameOf(inBrackets);
}

std::optional<PersonName> readLocalPart(std::string_view local) {
    const std::optional<PersonName> name = nameOf(local);
    return name ? name : nameOf(local, "");
}

bool isRoleName(std::string_view local) {
    const Words words = wordsOf(local, "");
    return words.empty() || std::any_of(words.begin(), words.end(), [](const std::string& word) {
               return contains(kRoles, word);
           });
}

bool agree(const PersonName& one, const PersonName& other) {
    return (endsAgree(one.first(), one.last(), other.first(), other.last()) ||
            endsAgree(one.first(), one.last(), other.last(), other.first())) &&
           one.generation == other.generation && middlesAgree(one, other);
}

}  // namespace pelk
