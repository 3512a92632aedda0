#pragma once
// Rewrites what MSXML writes in the canonical form that all platforms share. This is the program's
// own form, simpler than W3C Canonical XML.

#include <string>
#include <string_view>

namespace pelk {

/// Returns `xml` in the form that `XmlDocument::xml` describes. `xml` must be well-formed and have
/// no document type. Comments, processing instructions and white space between elements are
/// dropped.
std::string canonicalXml(std::string_view xml);

}  // namespace pelk
