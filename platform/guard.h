#pragma once
// The way from a toolkit's event into a form: no exception passes it, as no toolkit could carry one
// on.

#include <functional>

#include "platform/dialogs.h"

namespace pelk {

/// Runs `act`. The text of an `Error` that leaves it is shown in a box; so is any other fault, as
/// an unexpected one.
void guarded(Dialogs& dialogs, const std::function<void()>& act) noexcept;

}  // namespace pelk
