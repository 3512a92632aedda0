#include "platform/window_place.h"

#include <algorithm>
#include <sstream>

namespace pelk {

Rect fittedInto(const Rect& window, const Rect& screen) {
    const int width = std::min(window.width, screen.width);
    const int height = std::min(window.height, screen.height);
    return {std::clamp(window.left, screen.left, screen.left + screen.width - width),
            std::clamp(window.top, screen.top, screen.top + screen.height - height), width, height};
}

Rect centredOver(const Rect& window, const Rect& other) {
    return {other.left + (other.width - window.width) / 2,
            other.top + (other.height - window.height) / 2, window.width, window.height};
}

std::string textOfPlace(const Rect& window) {
    std::ostringstream text;
    text << window.left << ' ' << window.top << ' ' << window.width << ' ' << window.height;
    return text.str();
}

std::optional<Rect> placeIn(const std::string& text) {
    std::istringstream stream(text);
    Rect place;
    stream >> place.left >> place.top >> place.width >> place.height;
    if (!stream || place.width <= 0 || place.height <= 0)
        return std::nullopt;
    return place;
}

}  // namespace pelk
