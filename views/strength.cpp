#include "views/strength.h"

namespace pelk {

Strength strengthOf(std::int64_t weight, std::int64_t strongest, const Thresholds& thresholds) {
    const auto share = [strongest](double percent) {
        return static_cast<double>(strongest) * percent / 100;
    };
    if (share(thresholds.strong) < static_cast<double>(weight))
        return Strength::Strong;
    if (share(thresholds.weak) >= static_cast<double>(weight))
        return Strength::Weak;
    return Strength::Medium;
}

Color colorOf(Strength strength) {
    switch (strength) {
        case Strength::Strong:
            return {255, 0, 0};
        case Strength::Weak:
            return {100, 100, 100};
        case Strength::Medium:
            break;
    }
    return {0, 0, 255};
}

TreeImage imageOf(Strength strength) {
    switch (strength) {
        case Strength::Strong:
            return TreeImage::One;
        case Strength::Weak:
            return TreeImage::Three;
        case Strength::Medium:
            break;
    }
    return TreeImage::Two;
}

const char* nameOf(Strength strength) {
    switch (strength) {
        case Strength::Strong:
            return "strong";
        case Strength::Weak:
            return "weak";
        case Strength::Medium:
            break;
    }
    return "medium";
}

}  // namespace pelk
