#pragma once
// The well-formedness constraints of XML 1.0 that pugixml does not check.

#include <string>
#include <string_view>

namespace pugi {
class xml_document;
}

namespace pelk {

/// Describes what is wrong with the characters of an XML text: bytes that are not UTF-8, characters
/// that XML does not allow, references to unknown entities. Empty when nothing is.
std::string wellFormednessError(std::string_view text);

/// Describes what is wrong with a document that was parsed with document types and stray text kept.
/// It must hold one root element and nothing beside it, no attribute twice in one element, and nest
/// no deeper than `kDeepestNesting`. Empty when nothing is wrong.
std::string wellFormednessError(const pugi::xml_document& document);

}  // namespace pelk
