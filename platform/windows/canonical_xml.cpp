#include "platform/windows/canonical_xml.h"

#include <cstddef>
#include <cstdint>

#include "platform/xml_markup.h"

namespace pelk {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
/// U+FFFD replaces what XML does not allow.
constexpr std::uint32_t kReplacement = 0xFFFD;

bool isBlank(std::string_view text) {
    return text.find_first_not_of(kBlanks) == std::string_view::npos;
}

void appendUtf8(std::string& out, std::uint32_t code) {
    const auto append = [&out](std::uint32_t byte) { out += static_cast<char>(byte); };
    if (code < 0x80)
        return append(code);
    if (code < 0x800) {
        append(0xC0U | code >> 6U);
    } else {
        if (code < 0x10000) {
            append(0xE0U | code >> 12U);
        } else {
            append(0xF0U | code >> 18U);
            append(0x80U | (code >> 12U & 0x3FU));
        }
        append(0x80U | (code >> 6U & 0x3FU));
    }
    append(0x80U | (code & 0x3FU));
}

/// Writes a document markup by markup. A start tag stays open until the next markup shows whether
/// the element is empty.
class CanonicalWriter {
 public:
    explicit CanonicalWriter(std::size_t size) { out_.reserve(size); }

    void write(const Markup& markup) {
        switch (markup.kind) {
            case MarkupKind::Text:
                if (!isBlank(markup.text))
                    appendText(markup.text);
                break;
            case MarkupKind::CDataSection:
                closeStartTag();
                out_ += markup.text;
                break;
            case MarkupKind::StartTag:
                appendStart(markup.text.substr(1, markup.text.size() - 2));
                break;
            case MarkupKind::EmptyTag:
                appendStart(markup.text.substr(1, markup.text.size() - 3));
                appendEnd({});
                break;
            case MarkupKind::EndTag:
                appendEnd(markup.text);
                break;
            case MarkupKind::Misc:
            case MarkupKind::DocumentType:
                break;
        }
    }

    std::string take() { return std::move(out_); }

 private:
    void closeStartTag() {
        if (startTagIsOpen_)
            out_ += '>';
        startTagIsOpen_ = false;
    }

    /// `inner` is the tag without its brackets.
    void appendStart(std::string_view inner) {
        closeStartTag();
        startTagIsOpen_ = true;
        out_ += '<';
        out_ += inner.substr(0, inner.find_first_of(kBlanks));
        // The rest is attributes: a name, "=", a value in single or double quotes.
        for (std::size_t at = inner.find_first_of("\"'"); at != std::string_view::npos;
             at = inner.find_first_of("\"'")) {
            const std::size_t end = inner.find(inner[at], at + 1);
            appendAttribute(inner.substr(0, at), inner.substr(at + 1, end - at - 1));
            inner.remove_prefix(end + 1);
        }
    }

    /// `before` ends in the attribute's name and the "=".
    void appendAttribute(std::string_view before, std::string_view value) {
        before = before.substr(0, before.rfind('='));
        before = before.substr(0, before.find_last_not_of(kBlanks) + 1);
        out_ += ' ';
        out_ += before.substr(before.find_last_of(kBlanks) + 1);
        out_ += "=\"";
        for (std::size_t at = value.find('&'); at != std::string_view::npos; at = value.find('&')) {
            const std::size_t end = value.find(';', at);
            appendPlain(value.substr(0, at));
            const auto character = referencedCharacter(value.substr(at + 1, end - at - 1));
            appendCharacter(character.value_or(kReplacement));
            value.remove_prefix(end + 1);
        }
        appendPlain(value);
        out_ += '"';
    }

    /// Appends part of an attribute's value without references. Only double quotes need escaping.
    void appendPlain(std::string_view text) {
        for (std::size_t at = text.find('"'); at != std::string_view::npos; at = text.find('"')) {
            out_ += text.substr(0, at);
            out_ += "&quot;";
            text.remove_prefix(at + 1);
        }
        out_ += text;
    }

    void appendCharacter(std::uint32_t code) {
        if (code == '&')
            out_ += "&amp;";
        else if (code == '<')
            out_ += "&lt;";
        else if (code == '"')
            out_ += "&quot;";
        else if (code < ' ')
            out_ += {'&', '#', static_cast<char>('0' + code / 10),
                     static_cast<char>('0' + code % 10), ';'};
        else
            appendUtf8(out_, code);
    }

    /// Drops the CR of the CR LF that the library writes at line ends.
    void appendText(std::string_view text) {
        closeStartTag();
        for (const char character : text)
            if (character != '\r')
                out_ += character;
    }

    void appendEnd(std::string_view tag) {
        if (startTagIsOpen_)
            out_ += "/>";
        else
            out_ += tag;
        startTagIsOpen_ = false;
    }

    std::string out_;
    bool startTagIsOpen_ = false;
};

}  // namespace

std::string canonicalXml(std::string_view xml) {
    constexpr std::string_view declaration = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>";
    CanonicalWriter writer(declaration.size() + xml.size());
    writer.write({MarkupKind::CDataSection, declaration});
    while (!xml.empty())
        writer.write(takeMarkup(xml));
    return writer.take();
}

}  // namespace pelk
