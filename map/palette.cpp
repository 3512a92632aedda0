#include "map/palette.h"

#include <array>
#include <cstddef>

#include "platform/readable_color.h"

namespace pelk {
namespace {

constexpr std::array<Color, 9> kOnLight{{{0, 114, 178},
                                         {213, 94, 0},
                                         {0, 158, 115},
                                         {204, 121, 167},
                                         {230, 159, 0},
                                         {86, 180, 233},
                                         {117, 84, 62},
                                         {120, 94, 200},
                                         {176, 176, 40}}};
constexpr std::array<Color, 9> kOnDark{{{76, 160, 225},
                                        {240, 130, 50},
                                        {30, 190, 145},
                                        {225, 150, 190},
                                        {240, 180, 40},
                                        {130, 205, 245},
                                        {180, 145, 120},
                                        {165, 145, 235},
                                        {205, 205, 90}}};

}  // namespace

Color Palette::ofGroup(std::uint32_t group) const {
    const std::size_t number = group;
    if (number >= kOnLight.size())
        return isDark ? Color{150, 150, 150} : Color{135, 135, 135};
    return isDark ? kOnDark[number] : kOnLight[number];
}

Palette lightPalette() {
    return {{255, 255, 255}, {32, 33, 36}, {190, 190, 195}, false};
}

Palette darkPalette() {
    return {{32, 33, 36}, {232, 234, 237}, {95, 97, 102}, true};
}

Palette paletteOn(const Color& background, const Color& text) {
    constexpr Color kBlack{0, 0, 0};
    constexpr Color kWhite{255, 255, 255};
    const bool isDark = contrastRatio(background, kWhite) > contrastRatio(background, kBlack);
    Palette palette = isDark ? darkPalette() : lightPalette();
    palette.background = background;
    palette.text = text;
    return palette;
}

}  // namespace pelk
