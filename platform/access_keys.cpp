#include "platform/access_keys.h"

#include <set>

#include "platform/ascii.h"

namespace pelk {
namespace {

constexpr std::size_t kNone = std::string::npos;

bool isLetter(char byte) {
    return lowerAscii(byte) >= 'a' && lowerAscii(byte) <= 'z';
}

std::size_t markedLetter(const std::string& caption) {
    for (std::size_t at = 0; at + 1 < caption.size(); ++at)
        if (caption[at] == '&' && caption[++at] != '&')
            return at;
    return kNone;
}

/// Returns the position of the first free letter, of a word's first letters or of all; or `kNone`.
std::size_t freeLetter(const std::string& caption, const std::set<char>& taken, bool firstOnly) {
    char before = ' ';
    for (std::size_t at = 0; at < caption.size(); before = caption[at++])
        if (isLetter(caption[at]) && !taken.contains(lowerAscii(caption[at])) &&
            (!firstOnly || before == ' '))
            return at;
    return kNone;
}

}  // namespace

std::vector<std::string> withAccessKeys(std::vector<std::string> captions) {
    std::set<char> taken;
    for (const std::string& caption : captions)
        if (const std::size_t marked = markedLetter(caption); marked != kNone)
            taken.insert(lowerAscii(caption[marked]));
    for (const bool firstOnly : {true, false})
        for (std::string& caption : captions) {
            const std::size_t letter =
                markedLetter(caption) == kNone ? freeLetter(caption, taken, firstOnly) : kNone;
            if (letter == kNone)
                continue;
            taken.insert(lowerAscii(caption[letter]));
            caption.insert(letter, 1, '&');
        }
    return captions;
}

std::string withoutAccessKey(const std::string& caption) {
    std::string literal;
    for (const char letter : caption)
        literal += letter == '&' ? "&&" : std::string(1, letter);
    return literal;
}

}  // namespace pelk
