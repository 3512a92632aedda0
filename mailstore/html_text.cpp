#include "mailstore/html_text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "mailstore/gmime_ready.h"

namespace pelk {
namespace {

using namespace std::string_view_literals;

/// The common ones; others stay as they are.
constexpr std::pair<std::string_view, gunichar> kEntities[] = {
    {"amp", '&'},      {"lt", '<'},      {"gt", '>'},        {"quot", '"'},     {"apos", '\''},
    {"nbsp", ' '},     {"copy", 0xA9},   {"reg", 0xAE},      {"euro", 0x20AC},  {"pound", 0xA3},
    {"sect", 0xA7},    {"deg", 0xB0},    {"hellip", 0x2026}, {"ndash", 0x2013}, {"mdash", 0x2014},
    {"bull", 0x2022},  {"middot", 0xB7}, {"lsquo", 0x2018},  {"rsquo", 0x2019}, {"ldquo", 0x201C},
    {"rdquo", 0x201D}, {"laquo", 0xAB},  {"raquo", 0xBB},    {"auml", 0xE4},    {"ouml", 0xF6},
    {"uuml", 0xFC},    {"Auml", 0xC4},   {"Ouml", 0xD6},     {"Uuml", 0xDC},    {"szlig", 0xDF},
    {"eacute", 0xE9},  {"egrave", 0xE8}, {"agrave", 0xE0},   {"ccedil", 0xE7},  {"ecirc", 0xEA},
    {"ntilde", 0xF1}};
constexpr std::size_t kLongestEntity = 10;

constexpr std::array kHidden = {"script"sv, "style"sv, "head"sv, "title"sv};
constexpr std::array kBlocks = {"address"sv, "article"sv, "blockquote"sv, "div"sv, "dd"sv,
                                "dl"sv,      "dt"sv,      "hr"sv,         "li"sv,  "ol"sv,
                                "section"sv, "table"sv,   "tr"sv,         "ul"sv,  "pre"sv};
constexpr std::array kParagraphs = {"p"sv, "h1"sv, "h2"sv, "h3"sv, "h4"sv, "h5"sv, "h6"sv};

template <typename Names>
bool isOneOf(std::string_view name, const Names& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isLetter(char c) {
    return g_ascii_isalnum(c) != FALSE;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), g_ascii_tolower);
    return lower;
}

class HtmlReader {
 public:
    explicit HtmlReader(std::string_view html) : html_(html), lower_(lowerCase(html)) {}

    std::string run() {
        while (at_ < html_.size()) {
            const char c = html_[at_];
            if (c == '<' && takeTag())
                continue;
            if (c == '&' && takeEntity())
                continue;
            ++at_;
            take(c);
        }
        return std::move(text_);
    }

 private:
    /// Returns false if the "<" does not begin a tag.
    bool takeTag() {
        if (lower_.compare(at_, 4, "<!--") == 0) {
            skipBehind("-->");
            return true;
        }
        const std::size_t name = at_ + (lower_.compare(at_, 2, "</") == 0 ? 2 : 1);
        if (!hasTagEnd_ || name >= html_.size() ||
            (!isLetter(html_[name]) && html_[name] != '!' && html_[name] != '?'))
            return false;
        const std::size_t end = html_.find('>', name);
        hasTagEnd_ = end != std::string_view::npos;
        if (!hasTagEnd_)
            return false;
        const auto last = std::find_if_not(lower_.begin() + static_cast<std::ptrdiff_t>(name),
                                           lower_.end(), isLetter);
        const std::string tag(lower_.begin() + static_cast<std::ptrdiff_t>(name), last);
        const bool opens = name == at_ + 1;
        at_ = end + 1;
        if (opens && isOneOf(tag, kHidden))
            skipBehind("</" + tag);
        breakFor(tag, opens);
        return true;
    }

    void skipBehind(std::string_view text) {
        const std::size_t found = lower_.find(text, at_);
        at_ = found == std::string::npos ? html_.size() : found + text.size();
        // The rest of an end tag.
        if (text.starts_with("</") && at_ < html_.size()) {
            const std::size_t end = html_.find('>', at_);
            at_ = end == std::string_view::npos ? html_.size() : end + 1;
        }
    }

    void breakFor(std::string_view tag, bool opens) {
        if (tag == "br")
            text_ += '\n';
        else if (isOneOf(tag, kParagraphs))
            breakLines(2);
        else if (isOneOf(tag, kBlocks))
            breakLines(1);
        else if (tag == "td" || tag == "th")
            take(' ');
        if (tag == "li" && opens)
            text_ += "- ";
        blank_ = blank_ && !text_.ends_with('\n');
    }

    /// Makes the text end with that many line ends.
    void breakLines(std::size_t count) {
        const std::size_t last = text_.find_last_not_of('\n');
        if (last == std::string::npos)
            return;
        for (std::size_t ends = text_.size() - last - 1; ends < count; ++ends)
            text_ += '\n';
    }

    bool takeEntity() {
        const std::size_t end = html_.substr(at_, kLongestEntity).find(';');
        if (end == std::string_view::npos)
            return false;
        const gunichar c = characterOf(html_.substr(at_ + 1, end - 1));
        if (c == 0)
            return false;
        at_ += end + 1;
        std::array<char, 6> bytes{};
        const int length = g_unichar_to_utf8(c, bytes.data());
        for (int i = 0; i < length; ++i)
            take(bytes[static_cast<std::size_t>(i)]);
        return true;
    }

    /// Returns 0 for a name or number that is no character.
    static gunichar characterOf(std::string_view name) {
        if (name.starts_with('#')) {
            const bool hexadecimal = name.starts_with("#x") || name.starts_with("#X");
            const std::string digits(name.substr(hexadecimal ? 2 : 1));
            const auto c =
                static_cast<gunichar>(std::strtoul(digits.c_str(), nullptr, hexadecimal ? 16 : 10));
            return g_unichar_validate(c) != FALSE ? c : 0;
        }
        for (const auto& [known, c] : kEntities)
            if (known == name)
                return c;
        return 0;
    }

    /// Blanks and line ends become a single blank.
    void take(char c) {
        if (g_ascii_isspace(c) != FALSE) {
            blank_ = !text_.empty() && !text_.ends_with('\n');
            return;
        }
        if (std::exchange(blank_, false))
            text_ += ' ';
        text_ += c;
    }

    const std::string_view html_;
    const std::string lower_;
    std::size_t at_ = 0;
    /// Whether there may be another ">".
    bool hasTagEnd_ = true;
    bool blank_ = false;
    std::string text_;
};

}  // namespace

std::string textOfHtml(std::string_view html) {
    return HtmlReader(html).run();
}

}  // namespace pelk
