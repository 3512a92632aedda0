#pragma once
// XML documents over MSXML.

#include <memory>

#include "platform/xml.h"

namespace pelk {

/// An empty document, on a thread that has COM ready. Throws `Error` when the system has no MSXML.
/// Documents that are nested deeper than the system's own default allows are refused.
std::unique_ptr<XmlDocument> createMsxmlDocument();

}  // namespace pelk
