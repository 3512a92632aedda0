#pragma once
// What a screen reader finds in a window.

#include <string>
#include <vector>

#include "platform/controls.h"

namespace pelk {

struct SpokenControl {
    std::string name;
    /// Empty for one that no control of a form should have.
    std::string role;
    /// The access key of a button in capitals; empty for none.
    std::string key;
};

/// Returns the visible controls of a shown window as the system's interface for screen readers
/// describes them.
std::vector<SpokenControl> spokenControls(Window& window);

}  // namespace pelk
