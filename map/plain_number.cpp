#include "map/plain_number.h"

#include <cmath>
#include <cstdint>

namespace pelk {

std::string plainNumber(double number) {
    const auto hundredths = static_cast<std::int64_t>(std::floor(std::fabs(number) * 100 + 0.5));
    std::string text = (number < 0 && hundredths > 0 ? "-" : "") + std::to_string(hundredths / 100);
    if (const std::int64_t rest = hundredths % 100; rest != 0) {
        text += '.';
        text += static_cast<char>('0' + rest / 10);
        if (rest % 10 != 0)
            text += static_cast<char>('0' + rest % 10);
    }
    return text;
}

}  // namespace pelk
