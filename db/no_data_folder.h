#pragma once
// The system names no folder for the data of its user.

#include "platform/error.h"

namespace pelk {

class NoDataFolder : public Error {
 public:
    NoDataFolder() : Error("Serious error, cannot access the application data directory !") {}
};

}  // namespace pelk
