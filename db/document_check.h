#pragma once
// Whether a document that comes from elsewhere keeps what the program's own documents promise.

#include "platform/xml.h"

namespace pelk {

/// Throws `Error`, which names the first fault found, unless the document is one that the program
/// can have written: its date is one, numbers are whole ones in plain decimal form, the thresholds
/// lie within 0 to 100 and do not cross, ids are unique, an address is without capitals of ASCII
/// and belongs to one contact, and relations join two different contacts of the document, each pair
/// once, with the smaller id first.
///
/// Counters and thresholds may be missing, which reads as 0.
void requireSoundDocument(const XmlElement& root);

}  // namespace pelk
