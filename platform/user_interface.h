#pragma once
// Everything that a form is given to show itself with, in one hand. A program without windows has
// none of it.

#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/display.h"

namespace pelk {

/// References to services that outlive whoever holds this.
struct UserInterface {
    Toolkit& toolkit;
    Dialogs& dialogs;
    Display& display;
};

}  // namespace pelk
