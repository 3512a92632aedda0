#pragma once
// The way from a toolkit's event into a form: no exception passes it, as no toolkit could carry one
// on.

#include <functional>

#include "platform/dialogs.h"

namespace pelk {

/// Runs `act`. The text of an `Error` that leaves it is shown in a box; so is a lack of memory, and
/// any other fault, as an unexpected one.
void guarded(Dialogs& dialogs, const std::function<void()>& act) noexcept;

/// How many acts are under way, one inside another: a handler that shows a box or lets pending
/// events be handled has further ones inside it.
int guardedActs();

}  // namespace pelk
