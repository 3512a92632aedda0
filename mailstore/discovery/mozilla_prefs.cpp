#include "mailstore/discovery/mozilla_prefs.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

namespace pelk {
namespace {

constexpr std::string_view kStart = "user_pref(";

void appendUtf8(std::string& text, std::uint32_t code) {
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
    };
    if (code == 0) {
        // Neither settings nor paths contain a NUL.
    } else if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else {
        text += static_cast<char>(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    }
}

/// Reads one line.
class PrefReader {
 public:
    explicit PrefReader(std::string_view rest) : rest_(rest) {}

    std::optional<std::pair<std::string, std::string>> read() {
        skipBlanks();
        if (!take(kStart))
            return std::nullopt;
        skipBlanks();
        const std::optional<std::string> name = takeString();
        skipBlanks();
        if (!name || !take(","))
            return std::nullopt;
        skipBlanks();
        const std::optional<std::string> value = rest_.starts_with('"') ? takeString() : takeWord();
        return value ? std::optional(std::pair(*name, *value)) : std::nullopt;
    }

 private:
    bool take(std::string_view text) {
        const bool found = rest_.starts_with(text);
        rest_.remove_prefix(found ? text.size() : 0);
        return found;
    }

    void skipBlanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
    }

    std::optional<std::string> takeString() {
        std::string text;
        if (!take("\""))
            return std::nullopt;
        while (!rest_.empty() && !take("\"")) {
            if (take("\\"))
                takeEscape(text);
            else
                text += takeCharacter();
        }
        // Without the closing bracket, the string was truncated.
        return rest_.empty() ? std::nullopt : std::optional(text);
    }

    char takeCharacter() {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }

    void takeEscape(std::string& text) {
        const char kind = rest_.empty() ? '\\' : takeCharacter();
        if (kind == 'x' || kind == 'u')
            appendUtf8(text, takeHex(kind == 'x' ? 2 : 4));
        else
            text += kind == 'n' ? '\n' : kind == 'r' ? '\r' : kind;
    }

    std::uint32_t takeHex(std::size_t digits) {
        const std::string_view number = rest_.substr(0, digits);
        std::uint32_t code = 0;
        const char* const end = number.data() + number.size();
        rest_.remove_prefix(std::from_chars(number.data(), end, code, 16).ptr - number.data());
        return code;
    }

    std::optional<std::string> takeWord() {
        const std::size_t end = rest_.find_first_of(" \t)");
        if (end == std::string_view::npos || end == 0)
            return std::nullopt;
        return std::string(rest_.substr(0, end));
    }

    std::string_view rest_;
};

}  // namespace

MozillaPrefs parseMozillaPrefs(std::string_view text, std::string_view prefix) {
    MozillaPrefs prefs;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (auto pref = PrefReader(text.substr(0, end)).read();
            pref && pref->first.starts_with(prefix))
            prefs.insert_or_assign(std::move(pref->first), std::move(pref->second));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return prefs;
}

}  // namespace pelk
