#pragma once
// Splits XML text into its markup, for checks that need no parser.

#include <cstdint>
#include <optional>
#include <string_view>

namespace pelk {

enum class MarkupKind {
    Text,
    StartTag,
    /// A start tag that also ends its element.
    EmptyTag,
    EndTag,
    CDataSection,
    /// A comment, a processing instruction or the XML declaration.
    Misc,
    DocumentType
};

struct Markup {
    MarkupKind kind = MarkupKind::Text;
    /// The piece of the input, with its brackets.
    std::string_view text;
};

/// Removes and returns the first piece of `rest`, which is not empty. A piece without an end
/// extends to the end of the text. The pieces of well-formed text are exact; in other text they are
/// so only up to the first fault, where a parser stops as well.
Markup takeMarkup(std::string_view& rest);

/// Returns the character of a reference, given without "&" and ";": "lt", "#10" or "#xA". Nothing
/// when the name is unknown or the number is no character that XML allows.
std::optional<std::uint32_t> referencedCharacter(std::string_view name);

}  // namespace pelk
