// What every toolkit must do with an area that a form draws.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <sstream>
#include <thread>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/movement.h"
#include "tests/controls/window_fixture.h"

namespace pelk {
namespace {

constexpr Color kWhite{255, 255, 255};
constexpr Color kBlack{0, 0, 0};

class Drawing : public WindowTest {
 protected:
    Drawing() {
        window_->setInnerSize({6000, 4500});
        window_->show();
        driver_.settle();
    }

    /// Draws on white; `at` then returns how dark a point is, from 0 to 1.
    void draw(std::function<void(Canvas&)> drawing) {
        area_.onPaint = [drawing = std::move(drawing)](Canvas& canvas) {
            canvas.fill(kWhite);
            drawing(canvas);
        };
        area_.redraw();
        driver_.settle();
        pixels_ = driver_.pictureOf(area_);
    }
    std::size_t columns() const {
        const CanvasSize size = area_.size();
        return static_cast<std::size_t>(
            std::lround(std::sqrt(static_cast<double>(pixels_.size()) * size.width / size.height)));
    }
    double pixelsOfUnit() const { return static_cast<double>(columns()) / area_.size().width; }
    double at(double x, double y) const {
        const auto pixel = [this](double place) {
            return static_cast<std::size_t>(place * pixelsOfUnit());
        };
        return darkness(pixels_.at(pixel(y) * columns() + pixel(x)));
    }
    static double darkness(std::uint32_t pixel) { return 1 - (pixel & 0xFF) / 255.0; }

    /// What the handlers of the pointer have reported, such as "press 3,4", and forgets it.
    std::string reported() { return std::exchange(reports_, {}).str(); }
    auto reporting(const char* what) {
        return [this, what](CanvasPoint at) {
            // Pixels are coarser than units.
            const auto near = [](double place) { return 10 * std::lround(place / 10); };
            reports_ << what << ' ' << near(at.x) << ',' << near(at.y) << ' ';
        };
    }

    DrawingArea& area_ = window_->addDrawingArea({0, 0, 6000, 4500});
    Button& other_ = window_->addButton({0, 4200, 1000, 250}, "other");
    std::vector<std::uint32_t> pixels_;
    std::ostringstream reports_;
};

TEST_F(Drawing, PaintsShapesWhereTheyAre) {
    draw([](Canvas& canvas) {
        canvas.disc({50, 50}, 20, kBlack);
        canvas.ring({150, 50}, 20, 4, kBlack, 1);
        canvas.line({20, 120}, {180, 120}, 10, kBlack, 0.5);
    });
    EXPECT_EQ(at(50, 50), 1);
    EXPECT_EQ(at(67, 50), 1) << "the disc is too small";
    EXPECT_EQ(at(73, 50), 0) << "the disc is too large";
    EXPECT_EQ(at(150, 50), 0) << "a ring is not filled";
    EXPECT_EQ(at(170, 50), 1);
    EXPECT_NEAR(at(100, 120), 0.5, 0.02) << "the opacity";
    EXPECT_EQ(at(100, 113), 0) << "the line is too wide";
    EXPECT_NEAR(at(183, 120), 0.5, 0.02) << "the ends are not round";
    EXPECT_EQ(at(187, 120), 0);
}

TEST_F(Drawing, TextsAreAsWideAsMeasuredAndStandOnTheirLine) {
    const std::string text = "HxxxxxxxxxxxxxxxxxxxxxxxxxxxxH";
    draw([&](Canvas& canvas) { canvas.text({20, 60}, text, 12, true, kBlack, kWhite); });
    const double end = 20 + area_.widthOf(text, 12);
    double top = 100;
    double bottom = 0;
    double left = 1000;
    double right = 0;
    for (std::size_t pixel = 0; pixel < pixels_.size(); ++pixel)
        if (darkness(pixels_[pixel]) > 0.6) {
            const double x = static_cast<double>(pixel % columns()) / pixelsOfUnit();
            const double y = static_cast<double>(pixel / columns()) / pixelsOfUnit();
            top = std::min(top, y);
            bottom = std::max(bottom, y);
            left = std::min(left, x);
            right = std::max(right, x);
        }
    EXPECT_NEAR(left, 20, 3);
    EXPECT_NEAR(right, end, 0.05 * (end - left));
    EXPECT_NEAR(bottom, 60, 2) << "the baseline";
    EXPECT_NEAR(bottom - top, 9, 3) << "the size";
    EXPECT_NEAR(area_.widthOf(text, 24), 2 * area_.widthOf(text, 12), 0.5);
}

TEST_F(Drawing, TextsCoverLinesWithTheirOutline) {
    const auto line = [](Canvas& canvas) { canvas.line({0, 56}, {200, 56}, 40, kBlack, 1); };
    draw(line);
    const auto darkBefore = std::count_if(pixels_.begin(), pixels_.end(),
                                          [](auto pixel) { return darkness(pixel) > 0.5; });
    draw([&](Canvas& canvas) {
        line(canvas);
        canvas.text({20, 60}, "iiiii", 12, false, kBlack, kWhite);
    });
    const auto dark = std::count_if(pixels_.begin(), pixels_.end(),
                                    [](auto pixel) { return darkness(pixel) > 0.5; });
    EXPECT_LT(dark, darkBefore - 50);
}

TEST_F(Drawing, PaintsOnceForSeveralRequests) {
    int paintings = 0;
    draw([&](Canvas&) { ++paintings; });
    paintings = 0;
    area_.redraw();
    area_.redraw();
    EXPECT_EQ(paintings, 0) << "painted within the call";
    driver_.settle();
    EXPECT_EQ(paintings, 1);
    int sizes = 0;
    area_.onResize = [&] { ++sizes; };
    area_.setBounds({0, 0, 3000, 3000});
    driver_.settle();
    EXPECT_EQ(sizes, 1);
    EXPECT_EQ(paintings, 2);
}

TEST_F(Drawing, AMovementShowsTheLastPaintingUntilItRests) {
    int paintings = 0;
    draw([&](Canvas& canvas) {
        ++paintings;
        std::this_thread::sleep_for(std::chrono::milliseconds(2 * kFrameMilliseconds));
        canvas.disc({50, 50}, 20, kBlack);
    });
    paintings = 0;
    area_.redrawMoved(2, {30, 10});
    pixels_ = driver_.pictureOf(area_);
    EXPECT_EQ(at(130, 110), 1) << "the middle of the disc";
    EXPECT_EQ(at(95, 110), 1) << "twice as large";
    EXPECT_EQ(at(50, 50), 0);
    EXPECT_EQ(paintings, 0);
    while (paintings == 0)
        driver_.settle();
    pixels_ = driver_.pictureOf(area_);
    EXPECT_EQ(at(50, 50), 1);
    EXPECT_EQ(at(130, 110), 0);
}

TEST_F(Drawing, AFailureIsShownOnce) {
    platform_.dialogs.expectMessage("no paint");
    draw([](Canvas&) { throw Error("no paint"); });
    window_->hide();
    window_->show();
    driver_.settle();
    platform_.dialogs.expectAllShown();
    draw([](Canvas& canvas) { canvas.disc({50, 50}, 20, kBlack); });
    EXPECT_EQ(at(50, 50), 1) << "works again";
}

TEST_F(Drawing, ReportsThePointer) {
    area_.onPress = reporting("press");
    area_.onMove = reporting("move");
    area_.onRelease = reporting("release");
    area_.onDoubleClick = reporting("double");
    area_.onLeave = [this] { reports_ << "leave "; };
    area_.onWheel = [this](CanvasPoint at, double notches) {
        reporting("wheel")(at);
        reports_ << "by " << notches << ' ';
    };
    driver_.point(area_, PointerAct::Move, {30, 40});
    EXPECT_EQ(reported(), "move 30,40 ");
    driver_.point(area_, PointerAct::Press, {30, 40});
    EXPECT_EQ(reported(), "press 30,40 ");
    driver_.point(area_, PointerAct::Move, {60, 70});
    EXPECT_EQ(reported(), "move 60,70 ");
    driver_.point(area_, PointerAct::Release, {60, 70});
    EXPECT_EQ(reported(), "release 60,70 ");
    driver_.point(area_, PointerAct::Leave);
    EXPECT_EQ(reported(), "leave ");
    driver_.turnWheel(area_, {30, 40}, 0.5);
    driver_.turnWheel(area_, {30, 40}, -1);
    EXPECT_EQ(reported(), "wheel 30,40 by 0.5 wheel 30,40 by -1 ");
    area_.onMove = nullptr;
    driver_.point(area_, PointerAct::DoubleClick, {90, 90});
    EXPECT_EQ(reported(), "press 90,90 release 90,90 double 90,90 ");
}

TEST_F(Drawing, TellsNothingWhenItsWindowGoes) {
    bool told = false;
    area_.onRelease = [&](CanvasPoint) { told = true; };
    area_.onResize = area_.onLeave = [&] { told = true; };
    driver_.point(area_, PointerAct::Press, {30, 40});
    window_.reset();
    EXPECT_FALSE(told) << "the form may be gone";
}

TEST_F(Drawing, HasKeysWhileItHasTheFocus) {
    std::vector<DrawingKey> keys;
    area_.onKey = [&](DrawingKey key) { keys.push_back(key); };
    driver_.giveFocus(other_);
    driver_.press(*window_, Key::Left);
    EXPECT_TRUE(keys.empty());
    driver_.giveFocus(other_);
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(area_)) << "Tab";
    driver_.giveFocus(other_);
    driver_.click(area_, {50, 50});
    EXPECT_TRUE(driver_.hasFocus(area_)) << "a click";
    for (const Key key :
         {Key::Left, Key::Right, Key::Up, Key::Down, Key::Plus, Key::Minus, Key::Home})
        driver_.press(*window_, key);
    EXPECT_EQ(keys,
              (std::vector{DrawingKey::Left, DrawingKey::Right, DrawingKey::Up, DrawingKey::Down,
                           DrawingKey::Plus, DrawingKey::Minus, DrawingKey::Home}));
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(other_)) << "Tab leaves it";
}

TEST_F(Drawing, ShowsATipAndAHand) {
    driver_.point(area_, PointerAct::Move, {30, 40});
    area_.showTip("Ann <b>\n12 e-mails");
    driver_.settle();
    EXPECT_EQ(driver_.shownTip(), "Ann <b>\n12 e-mails");
    area_.showTip("");
    while (!driver_.shownTip().empty())  // it may fade
        driver_.settle();
    area_.setHandPointer(true);
    EXPECT_EQ(driver_.pointerOver(area_), Pointer::Hand);
    area_.setHandPointer(false);
    EXPECT_EQ(driver_.pointerOver(area_), Pointer::Arrow);
    area_.showTip("Bob");
    driver_.settle();
    EXPECT_EQ(driver_.shownTip(), "Bob");
    window_->hide();
    while (!driver_.shownTip().empty())
        driver_.settle();
}

TEST_F(Drawing, AnimatesToTheEndUnlessReplaced) {
    std::vector<double> shares;
    bool replaced = false;
    area_.animate(60, [&](double) { replaced = true; });
    area_.animate(0.1, [&](double share) { shares.push_back(share); });
    while (shares.empty() || shares.back() < 1)
        driver_.settle();
    for (int more = 0; more < 100; ++more)
        driver_.settle();
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_GT(shares.front(), 0);
    EXPECT_EQ(std::count(shares.begin(), shares.end(), 1.0), 1);
    EXPECT_FALSE(replaced);
    area_.animate(0, [&](double share) { shares.push_back(share + 1); });
    EXPECT_EQ(shares.back(), 2) << "without time, at once";
}

}  // namespace
}  // namespace pelk
