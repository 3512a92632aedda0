#pragma once
// The rule for the thresholds that the user may set.

namespace pelk {

/// Whether the two thresholds, in percent of the strongest relation's weight, do not cross. Equal
/// ones are accepted although the message says "more": no relation is medium then, which is
/// harmless.
inline bool areAcceptable(int strong, int weak) {
    return strong >= weak;
}

inline constexpr const char* kUnacceptableThresholds =
    "Erroneous Action: A strong relation must always have more exchanged e-mails than that of a "
    "weak relation. Please apply a different configuration.";

}  // namespace pelk
