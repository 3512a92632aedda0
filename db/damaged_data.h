#pragma once
// The verdict on content, as opposed to a failure to get at it.

#include "platform/error.h"

namespace pelk {

/// What was read is not what the program wrote: encrypted text that is foreign, cut short or
/// altered, a text that is no well-formed document, a document that is no contact database. Only
/// this may be taken for damage. A disk, a library or a lack of memory that prevented a verdict is
/// another error.
class DamagedData : public Error {
 public:
    using Error::Error;
};

}  // namespace pelk
