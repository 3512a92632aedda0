#include "platform/windows/windows_language.h"

#include <windows.h>

#include <algorithm>
#include <numeric>

#include "platform/accents.h"
#include "platform/ascii.h"
#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

bool isUtf8(std::string_view text) {
    return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                               static_cast<int>(text.size()), nullptr, 0) > 0;
}

/// Maps the letters of a text, each to one of the same length, by Unicode's rules independent of a
/// locale.
std::wstring inCase(DWORD mapping, const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::wstring mapped(text.size(), L'\0');
    const int written = LCMapStringEx(LOCALE_NAME_INVARIANT, mapping | LCMAP_LINGUISTIC_CASING,
                                      text.data(), size, mapped.data(), size, nullptr, nullptr, 0);
    return written == size ? mapped : text;
}

/// Returns equal texts for texts that differ only in case.
std::wstring foldCase(const std::wstring& text) {
    return inCase(LCMAP_LOWERCASE, inCase(LCMAP_UPPERCASE, text));
}

/// Returns the text in Unicode's form KD; unchanged if it contains characters that Windows does not
/// know.
std::wstring decomposed(const std::wstring& text) {
    constexpr DWORD kFormKD = MAP_COMPOSITE | MAP_FOLDCZONE;
    const int size = static_cast<int>(text.size());
    const int needed = FoldStringW(kFormKD, text.data(), size, nullptr, 0);
    std::wstring parts(static_cast<std::size_t>(needed), L'\0');
    const int written = FoldStringW(kFormKD, text.data(), size, parts.data(), needed);
    parts.resize(static_cast<std::size_t>(written));
    return written > 0 ? parts : text;
}

/// Computes sort keys: bytes whose order is the alphabetical order of the texts.
class SortKeys {
 public:
    explicit SortKeys(const std::wstring& locale) : locale_(locale) {}

    std::string keyOf(std::string_view text) {
        const std::wstring wide = toWide(text);
        if (wide.empty())
            return {};
        // Large enough for nearly every text, so that one call suffices.
        buffer_.resize(std::max(buffer_.size(), wide.size() * 16 + 64));
        int size = map(wide, static_cast<int>(buffer_.size()));
        if (size == 0) {
            buffer_.resize(static_cast<std::size_t>(map(wide, 0)));
            size = map(wide, static_cast<int>(buffer_.size()));
        }
        return buffer_.substr(0, static_cast<std::size_t>(size));
    }

 private:
    /// The type counts characters, but sort key sizes are in bytes.
    int map(const std::wstring& text, int room) {
        return LCMapStringEx(locale_.c_str(), LCMAP_SORTKEY | LINGUISTIC_IGNORECASE, text.data(),
                             static_cast<int>(text.size()),
                             reinterpret_cast<wchar_t*>(buffer_.data()), room, nullptr, nullptr, 0);
    }

    const std::wstring& locale_;
    std::string buffer_;
};

}  // namespace

WindowsLanguage::WindowsLanguage() {
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = {};
    GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
    locale_ = name;
}

std::vector<std::size_t> WindowsLanguage::alphabeticalOrder(
    const std::vector<std::string_view>& texts) const {
    SortKeys sortKeys(locale_);
    std::vector<std::string> keys;
    keys.reserve(texts.size());
    for (const std::string_view text : texts)
        keys.push_back(sortKeys.keyOf(text));
    std::vector<std::size_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&keys](std::size_t left, std::size_t right) {
        return keys[left] < keys[right];
    });
    return order;
}

bool WindowsLanguage::startsWith(std::string_view text, std::string_view start) const {
    if (isAscii(text) && isAscii(start))
        return text.size() >= start.size() &&
               std::equal(start.begin(), start.end(), text.begin(), [](char left, char right) {
                   return lowerAscii(left) == lowerAscii(right);
               });
    return foldCase(toWide(text)).starts_with(foldCase(toWide(start)));
}

/// Converts character by character, so that the number of characters stays the same. In text that
/// is not UTF-8 only the ASCII letters change: replacing the other bytes could make two texts
/// equal.
std::string WindowsLanguage::lowerCase(std::string_view text) const {
    if (isAscii(text) || !isUtf8(text))
        return lowerAscii(text);
    return toUtf8(inCase(LCMAP_LOWERCASE, toWide(text)));
}

std::string WindowsLanguage::folded(std::string_view text) const {
    if (isAscii(text))
        return lowerAscii(text);
    return withoutAccents(toUtf8(foldCase(decomposed(toWide(text)))));
}

}  // namespace pelk
