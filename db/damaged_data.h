#pragma once
// The error for damaged content, as opposed to content that cannot be read.

#include "platform/error.h"

namespace pelk {

/// The content was read and is not what the program writes: ciphertext that is foreign, truncated
/// or altered, a text that is not well-formed XML, or a document that is not a contact database.
/// Only this error proves damage; failures of the disk, a library or the memory are other errors.
class DamagedData : public Error {
 public:
    using Error::Error;
};

}  // namespace pelk
