#pragma once
// Whether a document that comes from elsewhere keeps what the program's own documents promise.

#include "platform/language.h"
#include "platform/xml.h"

namespace pelk {

/// Throws `Error`, which names the first fault found, unless the document keeps every invariant:
/// a date stamp, whole numbers, thresholds within 0 to 100, ids that are unique and no larger than
/// `totalContacts`, addresses in lower case that one contact owns, and relations between two
/// different contacts of the document, each pair once, with the smaller id first.
void requireSoundDocument(const XmlElement& root, const Language& language);

}  // namespace pelk
