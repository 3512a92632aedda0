#include "platform/xml_markup.h"

#include <charconv>
#include <cstddef>
#include <utility>

#include "platform/utf8.h"

namespace pelk {
namespace {

/// Returns the length up to and including `end`.
std::size_t lengthTo(std::string_view text, std::string_view end) {
    const std::size_t at = text.find(end);
    return at == std::string_view::npos ? text.size() : at + end.size();
}

/// Returns the length of a tag. A ">" within a quoted value does not end it.
std::size_t tagLength(std::string_view text) {
    std::size_t at = 0;
    while (true) {
        at = text.find_first_of(">\"'", at);
        if (at == std::string_view::npos)
            return text.size();
        if (text[at] == '>')
            return at + 1;
        at = text.find(text[at], at + 1);
        if (at == std::string_view::npos)
            return text.size();
        ++at;
    }
}

Markup firstMarkup(std::string_view rest) {
    if (rest.front() != '<')
        return {MarkupKind::Text, rest.substr(0, rest.find('<'))};
    if (rest.starts_with("<!--"))
        return {MarkupKind::Misc, rest.substr(0, lengthTo(rest, "-->"))};
    if (rest.starts_with("<![CDATA["))
        return {MarkupKind::CDataSection, rest.substr(0, lengthTo(rest, "]]>"))};
    if (rest.starts_with("<?"))
        return {MarkupKind::Misc, rest.substr(0, lengthTo(rest, "?>"))};
    const std::string_view tag = rest.substr(0, tagLength(rest));
    if (rest.starts_with("<!"))
        return {MarkupKind::DocumentType, tag};
    if (rest.starts_with("</"))
        return {MarkupKind::EndTag, tag};
    return {tag.ends_with("/>") ? MarkupKind::EmptyTag : MarkupKind::StartTag, tag};
}

}  // namespace

Markup takeMarkup(std::string_view& rest) {
    const Markup markup = firstMarkup(rest);
    rest.remove_prefix(markup.text.size());
    return markup;
}

std::optional<std::uint32_t> referencedCharacter(std::string_view name) {
    constexpr std::pair<std::string_view, char> named[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [known, character] : named)
        if (name == known)
            return character;
    if (!name.starts_with('#'))
        return std::nullopt;
    const bool hexadecimal = name.starts_with("#x");
    name.remove_prefix(hexadecimal ? 2 : 1);
    std::uint32_t code = 0;
    const char* const end = name.data() + name.size();
    const auto read = std::from_chars(name.data(), end, code, hexadecimal ? 16 : 10);
    if (read.ec != std::errc() || read.ptr != end || !isXmlCharacter(code))
        return std::nullopt;
    return code;
}

}  // namespace pelk
