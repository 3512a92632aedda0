#pragma once
// The strength of a relation, and how every view shows it.

#include <cstdint>

#include "db/database.h"
#include "platform/tree_model.h"

namespace pelk {

enum class Strength { Strong, Medium, Weak };

/// Returns the strength of a relation of that weight, relative to the weight `strongest` of the
/// strongest relation. A weight equal to a threshold belongs to the lower class.
Strength strengthOf(std::int64_t weight, std::int64_t strongest, const Thresholds& thresholds);

Color colorOf(Strength strength);
TreeImage imageOf(Strength strength);
/// "strong", "medium" or "weak".
const char* nameOf(Strength strength);

}  // namespace pelk
