#include "platform/windows/xml_markup.h"

#include <cstddef>

namespace pelk {
namespace {

/// The length up to and with `end`.
std::size_t lengthTo(std::string_view text, std::string_view end) {
    const std::size_t at = text.find(end);
    return at == std::string_view::npos ? text.size() : at + end.size();
}

/// The length of a tag: a ">" within a quoted value does not end it.
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
        return {MarkupKind::Aside, rest.substr(0, lengthTo(rest, "-->"))};
    if (rest.starts_with("<![CDATA["))
        return {MarkupKind::CharacterData, rest.substr(0, lengthTo(rest, "]]>"))};
    if (rest.starts_with("<?"))
        return {MarkupKind::Aside, rest.substr(0, lengthTo(rest, "?>"))};
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

}  // namespace pelk
