#pragma once
// The one form in which every platform writes XML, made from what a library wrote in its own.

#include <string>
#include <string_view>

namespace pelk {

/// The form that `XmlDocument::xml` describes, of a well-formed text that has no document type.
/// Comments, processing instructions and white space between elements are left out.
std::string inOneForm(std::string_view xml);

}  // namespace pelk
