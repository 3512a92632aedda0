#pragma once
// XML documents over MSXML.

#include <memory>

#include "platform/xml.h"

namespace pelk {

/// Returns an empty document. Requires: the thread has initialized COM. Throws `Error` when the
/// system has no MSXML. Documents that are nested deeper than the system's own default allows are
/// refused.
std::unique_ptr<XmlDocument> createMsxmlDocument();

}  // namespace pelk
