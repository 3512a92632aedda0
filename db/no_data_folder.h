#pragma once
// The error for a system that names no data folder for its user.

#include "platform/error.h"

namespace pelk {

class NoDataFolder : public Error {
 public:
    NoDataFolder() : Error("Serious error, cannot access the application data directory !") {}
};

}  // namespace pelk
