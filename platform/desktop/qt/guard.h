#pragma once
// The way from a Qt event into a form: no exception passes it, as Qt could not carry one on.

#include <functional>

#include "platform/dialogs.h"

namespace pelk {

/// Runs `act`. The text of an `Error` that leaves it is shown in a box; so is any other fault, as
/// an unexpected one.
void guarded(Dialogs& dialogs, const std::function<void()>& act) noexcept;

}  // namespace pelk
