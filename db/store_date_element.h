#pragma once
// The date of a mail store as an element of a document, see docs/database-format.md.

#include "db/store_dates.h"
#include "platform/xml.h"

namespace pelk {

/// Returns the date in an element that `appendStoreDate` has made. What is missing reads as empty.
StoreDate readStoreDate(const XmlElement& element);

void appendStoreDate(const XmlElement& parent, const StoreDate& store);

}  // namespace pelk
