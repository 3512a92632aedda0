#pragma once
// How strong a relation is, and how every view shows it.

#include <cstdint>

#include "db/database.h"
#include "platform/tree_model.h"

namespace pelk {

enum class Strength { Strong, Medium, Weak };

/// The class of a relation of that weight in a database whose strongest relation has the weight
/// `strongest`. A weight that equals a threshold belongs to the class below it.
Strength strengthOf(std::int64_t weight, std::int64_t strongest, const Thresholds& thresholds);

Color colorOf(Strength strength);
TreeImage imageOf(Strength strength);
/// "strong", "medium" or "weak".
const char* nameOf(Strength strength);

}  // namespace pelk
