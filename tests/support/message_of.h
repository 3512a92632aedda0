#pragma once
// The message of a failure.

#include <functional>
#include <string>

#include "platform/error.h"

namespace pelk {

/// Returns the text of the `Error` that `act` throws; empty for none.
inline std::string messageOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

}  // namespace pelk
