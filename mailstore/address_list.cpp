#include "mailstore/address_list.h"

#include <algorithm>
#include <string>

#include "mailstore/address_scanner.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

constexpr std::string_view kMailto = "mailto:";

/// Returns `text` without quotes and without the backslashes inside them.
std::string unquoted(std::string_view text) {
    std::string result;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            quoted = !quoted;
            continue;
        }
        if (quoted && text[i] == '\\' && i + 1 < text.size())
            ++i;
        result += text[i];
    }
    return result;
}

/// Splits `text` at blanks outside of quotes, but not around `@` and before `.`: "jane @ example .
/// org" is one word.
std::vector<std::string> splitWords(std::string_view text) {
    std::vector<std::string> words;
    bool quoted = false;
    bool blank = true;
    bool joined = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == ' ' && !quoted) {
            blank = true;
            continue;
        }
        const bool joins = !quoted && (c == '@' || (c == '.' && blank));
        if (words.empty() || (blank && !joins && !joined))
            words.emplace_back();
        joined = joins;
        blank = false;
        words.back() += c;
        if (c == '"')
            quoted = !quoted;
        else if (quoted && c == '\\' && i + 1 < text.size())
            words.back() += text[++i];
    }
    return words;
}

/// Returns whether `word` has text on both sides of an `@`.
bool isAddress(std::string_view word) {
    return word.size() > 2 && word.front() != '@' && word.back() != '@' && hasAtSign(word);
}

/// Returns whether a single `word` can be an address in the reader's own domain.
bool isLocalAddress(std::string_view word) {
    return word.find_first_of("\"@") == std::string_view::npos && !word.starts_with("=?");
}

std::string withoutFinalDots(std::string_view address) {
    const std::size_t last = address.find_last_not_of('.');
    return std::string(address.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

std::string join(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += text.empty() ? "" : " ";
        text += word;
    }
    return text;
}

/// Returns the address in the text between angle brackets, or empty text.
std::string bracketedAddress(std::string_view content) {
    if (equalsIgnoringCase(content.substr(0, kMailto.size()), kMailto))
        content.remove_prefix(kMailto.size());
    // Nearly all contents are one plain address.
    if (content.find(' ') == std::string_view::npos &&
        content.find('"') == std::string_view::npos && isAddress(content))
        return withoutFinalDots(content);
    const std::vector<std::string> words = splitWords(content);
    const auto address = std::find_if(words.begin(), words.end(), isAddress);
    if (address != words.end())
        return withoutFinalDots(*address);
    const std::string text = join(words);
    return hasAtSign(text) ? std::string() : text;
}

class AddressListParser {
 public:
    std::vector<MailPerson> people;

    /// `nested` means that `field` is decoded text of an entry, which must not be decoded again.
    void parse(std::string_view field, bool nested) {
        AddressScanner scanner(field);
        while (const std::optional<AddressEntry> entry = scanner.next()) {
            const std::string address =
                entry->bracketed ? bracketedAddress(*entry->bracketed) : std::string();
            if (address.empty())
                addUnbracketed(*entry, nested);
            else
                add(entry->words, entry->comment, address);
        }
    }

 private:
    void add(std::string_view words, std::string_view comment, std::string_view address) {
        MailPerson person{decodeText(unquoted(words)), cleanAddress(address)};
        if (person.address.empty())
            return;
        if (person.name.empty())
            person.name = decodeText(comment);
        if (person.name.empty())
            person.name = person.address;
        people.push_back(std::move(person));
    }

    void addUnbracketed(const AddressEntry& entry, bool nested) {
        std::vector<std::string> words = splitWords(entry.words);
        const auto others = std::stable_partition(words.begin(), words.end(), isAddress);
        const std::vector<std::string> addresses(words.begin(), others);
        words.erase(words.begin(), others);
        if (addresses.size() == 1) {
            add(join(words), entry.comment, withoutFinalDots(addresses.front()));
            return;
        }
        for (const std::string& address : addresses)
            add({}, {}, withoutFinalDots(address));
        if (!addresses.empty() || words.empty())
            return;
        if (words.size() == 1 && !entry.bracketed && isLocalAddress(words.front()))
            add({}, entry.comment, words.front());
        else if (!nested)
            addHidden(entry.words);
    }

    /// Adds addresses that are inside of quotes or encoded words.
    void addHidden(std::string_view words) {
        const std::string text = decodeText(unquoted(words));
        if (text.find('@') != std::string::npos)
            parse(text, true);
    }
};

}  // namespace

std::vector<MailPerson> parseAddressList(std::string_view field) {
    AddressListParser parser;
    parser.parse(field, false);
    return std::move(parser.people);
}

}  // namespace pelk
