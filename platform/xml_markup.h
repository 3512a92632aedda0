#pragma once
// XML text cut into its pieces, for what has to be known of a text without a parser.

#include <cstdint>
#include <optional>
#include <string_view>

namespace pelk {

enum class MarkupKind {
    Text,
    StartTag,
    /// A start tag that ends its element, too.
    EmptyTag,
    EndTag,
    CDataSection,
    /// A comment or a processing instruction, the declaration among them.
    Misc,
    DocumentType
};

struct Markup {
    MarkupKind kind = MarkupKind::Text;
    /// The piece as it stands, with its brackets.
    std::string_view text;
};

/// Cuts off the first piece of `rest`, which is not empty. A piece without an end takes all that
/// is left. In a well-formed text the pieces are exact; of any other nothing can be said behind
/// its first fault, and a parser stops there as well.
Markup takeMarkup(std::string_view& rest);

/// The character that a reference stands for, given without its "&" and ";": "lt", "#10" or "#xA".
/// Nothing when the name is unknown, or the number is no character that a document may hold.
std::optional<std::uint32_t> referencedCharacter(std::string_view name);

}  // namespace pelk
