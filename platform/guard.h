#pragma once
// Keeps exceptions of event handlers away from the toolkit, which cannot propagate them.

#include <functional>

#include "platform/dialogs.h"

namespace pelk {

/// Runs `act` and shows any exception in a box: an `Error` with its text, a lack of memory as such,
/// anything else as an unexpected error.
void guarded(Dialogs& dialogs, const std::function<void()>& act) noexcept;

/// Returns how many acts are running. They nest: a handler that shows a box or processes pending
/// events can run others.
int guardedActs();

}  // namespace pelk
