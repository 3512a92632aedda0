#pragma once
// XML documents over pugixml.

#include <memory>

#include "platform/xml.h"

namespace pelk {

/// An empty document. It reads strictly: what other XML libraries refuse, it refuses too.
std::unique_ptr<XmlDocument> createPugiDocument();

}  // namespace pelk
