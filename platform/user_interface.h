#pragma once
// The services of a program with windows, for its forms.

#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/display.h"
#include "platform/picture_output.h"
#include "platform/settings.h"

namespace pelk {

/// The services outlive this object.
struct UserInterface {
    Toolkit& toolkit;
    Dialogs& dialogs;
    Display& display;
    Settings& settings;
    PictureOutput& pictures;
};

}  // namespace pelk
