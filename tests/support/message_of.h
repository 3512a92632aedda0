#pragma once
// What fails, in words.

#include <functional>
#include <string>

#include "platform/error.h"

namespace pelk {

/// What `act` reports as an `Error`; empty for none.
inline std::string messageOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

}  // namespace pelk
