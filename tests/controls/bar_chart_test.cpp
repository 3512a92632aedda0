// What every toolkit must do with a chart.

#include <algorithm>

#include "tests/controls/window_fixture.h"

namespace pelk {
namespace {

class Chart : public WindowTest {
 protected:
    Chart() {
        window_->setInnerSize({6000, 3000});
        window_->show();
    }
    /// Shows two bars, the first of which determines the scale. Returns what is painted.
    std::vector<std::uint32_t> shown(std::uint64_t above, std::uint64_t below) {
        chart_.setContent({"sent", "received", {{"a", 1000, 1000}, {"b", above, below}}, "two"});
        driver_.settle();
        return driver_.pictureOf(chart_);
    }
    /// The positions of the pixels that differ.
    static std::vector<std::size_t> changes(const std::vector<std::uint32_t>& one,
                                            const std::vector<std::uint32_t>& other) {
        std::vector<std::size_t> found;
        EXPECT_EQ(one.size(), other.size());
        for (std::size_t pixel = 0; pixel < std::min(one.size(), other.size()); ++pixel)
            if (one[pixel] != other[pixel])
                found.push_back(pixel);
        return found;
    }

    BarChart& chart_ = window_->addBarChart({0, 0, 6000, 3000});
};

TEST_F(Chart, DrawsBarsOnBothSidesOfTheLineInProportion) {
    const auto none = shown(0, 0);
    const auto above = changes(none, shown(1000, 0));
    const auto below = changes(none, shown(0, 1000));
    const auto half = changes(none, shown(500, 0));
    ASSERT_GT(half.size(), 100u);
    EXPECT_LT(above.back(), below.front());
    EXPECT_NEAR(static_cast<double>(half.size()) / static_cast<double>(above.size()), 0.5, 0.05);
    EXPECT_NE(shown(1000, 0)[above[0]], shown(0, 1000)[below[0]]) << "one colour for both";
    EXPECT_FALSE(changes(none, shown(1, 0)).empty()) << "a small number is not seen";
    EXPECT_FALSE(changes(none, shown(0, 1)).empty()) << "a small number is not seen";
}

TEST_F(Chart, IsPaintedWithoutBarsAndWithoutSpace) {
    chart_.setContent({});
    EXPECT_FALSE(driver_.pictureOf(chart_).empty());
    for (const int height : {1000, 300, 15}) {
        chart_.setBounds({0, 0, height, height});
        chart_.setContent({"sent", "received", {{"2026", 12, 3}}, ""});
        driver_.settle();
        EXPECT_FALSE(driver_.pictureOf(chart_).empty());
    }
}

}  // namespace
}  // namespace pelk
