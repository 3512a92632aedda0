#pragma once
// The reasons why a connection to a server becomes unusable.

#include "platform/error.h"

namespace pelk {

/// The connection broke, or the server does not answer. Another try may succeed.
class ConnectionLost : public Error {
 public:
    using Error::Error;
};

/// The server violated the protocol. This connection is unusable; a new one may work.
class BrokenAnswer : public Error {
 public:
    using Error::Error;
};

/// The server does not take the password: another one may be right.
class LoginRefused : public Error {
 public:
    using Error::Error;
};

/// The user ended a wait for the server.
class Cancelled : public Error {
 public:
    using Error::Error;
};

}  // namespace pelk
