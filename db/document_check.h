#pragma once
// Checks whether a foreign document keeps the invariants of the program's own documents.

#include "platform/xml.h"

namespace pelk {

/// Throws `Error`, which names the first fault, unless the document is one that the program can
/// have written. The date is valid; numbers are whole and in plain decimal form; the thresholds are
/// 0 to 100 and do not cross; ids are unique; an address has no ASCII capitals and belongs to one
/// contact; a relation joins two different contacts of the document, each pair once, with the
/// smaller id first. Missing counters and thresholds read as 0.
void requireSoundDocument(const XmlElement& root);

}  // namespace pelk
