#include "platform/accents.h"

#include <utility>

namespace pelk {
namespace {

/// Each letter is two bytes of UTF-8.
constexpr std::pair<std::string_view, std::string_view> kPlainLetters[] = {
    {"ß", "ss"}, {"æ", "ae"}, {"œ", "oe"}, {"ø", "o"}, {"ł", "l"}, {"đ", "d"},
    {"ð", "d"},  {"þ", "th"}, {"ħ", "h"},  {"ŧ", "t"}, {"ı", "i"},
};

/// U+0300 to U+036F are CC 80 to CC BF and CD 80 to CD AF.
bool isAccent(std::string_view character) {
    return character[0] == '\xcc' || (character[0] == '\xcd' && character[1] < '\xb0');
}

std::string_view plainLetter(std::string_view character) {
    for (const auto& [letter, plain] : kPlainLetters)
        if (letter == character)
            return plain;
    return character;
}

}  // namespace

std::string withoutAccents(std::string_view decomposed) {
    constexpr unsigned kFirstOfTwo = 0xc0;
    constexpr unsigned kFirstOfThree = 0xe0;
    std::string plain;
    plain.reserve(decomposed.size());
    while (!decomposed.empty()) {
        const auto byte = static_cast<unsigned char>(decomposed.front());
        const bool isPair = byte >= kFirstOfTwo && byte < kFirstOfThree && decomposed.size() > 1;
        const std::string_view character = decomposed.substr(0, isPair ? 2 : 1);
        decomposed.remove_prefix(character.size());
        if (!isPair)
            plain += character;
        else if (!isAccent(character))
            plain += plainLetter(character);
    }
    return plain;
}

}  // namespace pelk
