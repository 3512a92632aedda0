#pragma once
// Which thresholds the user may set.

namespace pelk {

/// The two thresholds, in percent of the strongest relation's weight, must not cross. Equal ones
/// are accepted, although the message speaks of more: then no relation is a medium one, which does
/// no harm.
inline bool areAcceptable(int strong, int weak) {
    return strong >= weak;
}

inline constexpr const char* kUnacceptableThresholds =
    "Erroneous Action: A strong relation must always have more exchanged e-mails than that of a "
    "weak relation. Please apply a different configuration.";

}  // namespace pelk
