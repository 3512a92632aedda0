#pragma once
// What pugixml lets pass although it is not well-formed.

#include <string>
#include <string_view>

namespace pugi {
class xml_document;
}

namespace pelk {

/// What is wrong with the characters of an XML text: bytes that are not UTF-8, characters that XML
/// cannot carry, references to unknown entities. Empty when nothing is.
std::string faultOfText(std::string_view text);

/// What is wrong with a document that was parsed with its document types and stray text kept: it
/// must hold one root element and nothing beside it, no attribute twice, and nest no deeper than
/// `kDeepestNesting`. Empty when nothing is wrong.
std::string faultOfDocument(const pugi::xml_document& document);

}  // namespace pelk
