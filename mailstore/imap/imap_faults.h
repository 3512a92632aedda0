#pragma once
// Why a conversation with a server ends early.

#include "platform/error.h"

namespace pelk {

/// The connection broke, or the server no longer answers: worth another try.
class ConnectionLost : public Error {
 public:
    using Error::Error;
};

/// The server said what no server may say. The conversation cannot go on, but another one may.
class BrokenAnswer : public Error {
 public:
    using Error::Error;
};

}  // namespace pelk
