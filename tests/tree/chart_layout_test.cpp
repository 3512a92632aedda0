#include "platform/chart_layout.h"

#include <gtest/gtest.h>

#include <random>

namespace pelk {
namespace {

int widthOf(const std::string& text) {
    return 7 * static_cast<int>(text.size());
}

std::vector<std::string> textsOf(const ChartLayout& layout, ChartAlign align) {
    std::vector<std::string> texts;
    for (const ChartText& text : layout.texts)
        if (text.align == align)
            texts.push_back(text.text);
    return texts;
}

TEST(ChartLayout, HasARoundScaleAndOneColumnForEachBar) {
    const ChartLayout layout =
        layOut({"up", "down", {{"2024", 130, 7}, {"2025", 0, 95}}, ""}, {{400, 300}, 15, widthOf});
    EXPECT_EQ(textsOf(layout, ChartAlign::Right),
              (std::vector<std::string>{"0", "50", "100", "150", "50", "100"}));
    EXPECT_EQ(textsOf(layout, ChartAlign::Center), (std::vector<std::string>{"2024", "2025"}));
    EXPECT_EQ(textsOf(layout, ChartAlign::Left), (std::vector<std::string>{"up", "down"}));
    ASSERT_EQ(layout.boxes.size(), 5u) << "three bars and two keys of the legend";
    const Rect& tall = layout.boxes[0].place;
    EXPECT_EQ(tall.top + tall.height, layout.middleLine.top);
    EXPECT_GE(tall.top, layout.scaleLines[2].top) << "130 is below the line of 150";
    EXPECT_LT(tall.top, layout.scaleLines[1].top);
}

TEST(ChartLayout, KeepsEverythingInItsSpaceAndLabelsApart) {
    std::mt19937 random(7);
    const auto number = [&random](std::uint32_t below) {
        return static_cast<std::uint32_t>(random()) % below;
    };
    for (int round = 0; round < 500; ++round) {
        const Size size{static_cast<int>(number(700)), static_cast<int>(number(400))};
        ChartContent content{"sent", "received", {}, ""};
        for (std::uint32_t bars = number(300); bars > 0; --bars)
            content.bars.push_back({std::string(number(8), '2'), number(5), number(4000000000)});
        const ChartLayout layout = layOut(content, {size, 15, widthOf});
        const auto expectInside = [&size](const Rect& place) {
            EXPECT_GE(std::min(place.left, place.top), 0);
            EXPECT_LE(place.left + place.width, size.width);
            EXPECT_LE(place.top + place.height, size.height);
        };
        for (const ChartBox& box : layout.boxes)
            expectInside(box.place);
        int free = 0;
        for (const ChartText& text : layout.texts) {
            expectInside(text.place);
            if (text.align != ChartAlign::Center)
                continue;
            EXPECT_GE(text.place.left, free);
            free = text.place.left + text.place.width;
        }
    }
}

}  // namespace
}  // namespace pelk
