// What the user does with a picture: views, pointing, marks, and the way to another picture.

#include "map/picture_view.h"
#include "map/hit_test.h"
#include "map/labels.h"
#include "map/marks.h"
#include "map/scene_view.h"
#include "map/transition.h"
#include "tests/map/map_fixture.h"
#include "tests/support/core_platform.h"

namespace pelk {
namespace {

Point placeIn(const SceneView& view, Point position) {
    return position * view.scale + view.offset;
}

TEST(SceneViews, zoomAroundAPointAndStayWithinThePicture) {
    const SceneView view{400, 300, 2, {10, 20}};
    const Point fixed{100, 50};
    const SceneView closer = zoomed(view, fixed, 3);
    EXPECT_EQ(closer.scale, 6);
    EXPECT_EQ(placeIn(closer, {45, 15}), fixed);
    EXPECT_EQ(placeIn(view, {45, 15}), fixed);

    const Box bounds{-100, -50, 100, 50};
    EXPECT_EQ(limited(closer, 1, bounds).scale, 6);
    EXPECT_EQ(limited(zoomed(view, fixed, 0.01), 1, bounds).scale, 1);
    EXPECT_LT(limited(zoomed(view, fixed, 1000), 1, bounds).scale, 100);
    const SceneView far = limited(moved(view, {9999, -9999}), 1, bounds);
    EXPECT_EQ(placeIn(far, {-100, 50}), (Point{200, 150})) << "its corner is in the middle";

    const SceneView wider = resized(view, 600, 400);
    EXPECT_EQ(placeIn(wider, {95, 65}), (Point{300, 200}));
    EXPECT_EQ(placeIn(view, {95, 65}), (Point{200, 150}));
    EXPECT_EQ(movedInto(view, {95, 65}).offset, view.offset) << "it is in view";
    const Point place = placeIn(movedInto(view, {900, -900}), {900, -900});
    EXPECT_TRUE(place.x > 300 && place.x < 380 && place.y > 20 && place.y < 100);
    EXPECT_EQ(between(view, closer, 0.5).scale, 4);
}

Scene sceneOf(const std::vector<SceneCircle>& circles) {
    Scene scene;
    scene.background = {255, 255, 255};
    scene.circles = circles;
    for (const SceneCircle& circle : circles)
        scene.texts.push_back(
            {circle.center,
             "label",
             10,
             false,
             {circle.center.x + 10, circle.center.y, circle.center.x + 60, circle.center.y + 10},
             circle.person});
    return scene;
}

TEST(HitTest, findsTheNearestCircleAndElseTheLabel) {
    const Scene scene =
        sceneOf({{{50, 50}, 20, {}, 4}, {{60, 50}, 3, {}, 7}, {{0, 0}, 9, {}, kNobody}});
    EXPECT_EQ(personAt(scene, {61, 51}), 7U);
    EXPECT_EQ(personAt(scene, {45, 50}), 4U);
    EXPECT_EQ(personAt(scene, {28, 50}), 4U) << "just beside it";
    EXPECT_EQ(personAt(scene, {110, 55}), 7U) << "the label that only it has here";
    EXPECT_EQ(personAt(scene, {1, 1}), kNobody) << "the legend";
    EXPECT_EQ(personAt(scene, {300, 50}), kNobody);
}

TEST(Marks, fadeAllButThoseFoundAndDrawTheWholeChain) {
    const Arrangement arrangement = arrangeCommunity(chainOfCliques(3, 5));
    const SceneView view = viewOfAll(arrangement, 800, 600, {});
    const Scene plain = makeScene(arrangement, view, {});
    Marks marks;
    marks.path = {1, 14, 2};
    Scene scene = plain;
    showMarks(scene, arrangement, view, marks);
    EXPECT_EQ(scene.lines.size(), plain.lines.size() + 2) << "also without a link";
    EXPECT_EQ(scene.lines.back().to, placeIn(view, arrangement.positions[2]));
    EXPECT_EQ(scene.marks.size(), 3U);
    for (std::size_t at = 0; at < scene.circles.size(); ++at) {
        const std::uint32_t person = scene.circles[at].person;
        const bool isMarked = person == 1 || person == 2 || person == 14;
        EXPECT_EQ(scene.circles[at].fill == plain.circles[at].fill, isMarked) << person;
    }
    scene = plain;
    showMarks(scene, arrangement, view, {3, {}, {}});
    EXPECT_EQ(scene.circles[0].fill, plain.circles[0].fill) << "a selection fades nobody";
    EXPECT_EQ(scene.marks.size(), 1U);
    const std::vector<std::uint32_t> many(41, 4);
    scene = plain;
    showMarks(scene, arrangement, view, {3, many, {}});
    EXPECT_EQ(scene.marks.size(), 1U) << "too many rings would hide the picture";
    EXPECT_EQ(markedPeople({3, {4}, {5}}), (std::vector<std::uint32_t>{3, 5, 4}));
}

TEST(Marks, givePeopleLabelsBeforeAllOthers) {
    const Arrangement arrangement = arrangeCommunity(chainOfCliques(10, 10));
    SceneStyle style;
    const SceneView view = viewOfAll(arrangement, 300, 200, style);
    const auto isLabelled = [&](std::uint32_t person) {
        const Scene scene = makeScene(arrangement, view, style);
        return std::any_of(scene.texts.begin(), scene.texts.end(), [person](const SceneText& text) {
            return text.person == person && text.bold;
        });
    };
    EXPECT_FALSE(isLabelled(55));
    style.labelledFirst = {55};
    EXPECT_TRUE(isLabelled(55));
}

Graph peopleWith(const std::vector<int>& ids) {
    Graph graph;
    for (const int id : ids)
        graph.people.push_back({{id, "", {}}});
    return graph;
}

TEST(Marks, letALabelCoverCirclesWhereThereIsNoRoom) {
    std::vector<LabelledCircle> crowd;
    for (int at = 0; at < 400; ++at)
        crowd.push_back({{10.0 * (at % 20), 10.0 * (at / 20)}, 5, 40, 8});
    const Box area{0, 0, 190, 190};
    EXPECT_FALSE(placeLabels(crowd, area, {})[210]);
    crowd[210].coversAll = true;
    EXPECT_TRUE(placeLabels(crowd, area, {})[210]);
}

TEST(Transition, movesThoseWhoStayAndLetsOthersComeAndGo) {
    const Graph before = peopleWith({1, 2, 3});
    const Graph after = peopleWith({3, 2, 9});
    Scene from = sceneOf({{{0, 0}, 8, {}, 0}, {{10, 0}, 8, {}, 1}, {{20, 0}, 8, {0, 0, 0}, 2}});
    from.lines = {{{10, 0}, {20, 0}, 2, {}, 1, 1, 2}, {{0, 0}, {10, 0}, 2, {}, 1, 0, 1}};
    renumberPeople(from, before, after);
    EXPECT_EQ(from.circles[0].person, kNobody);
    EXPECT_EQ(from.lines[0].fromPerson, 0U) << "the smaller number first";
    EXPECT_EQ(from.lines[0].from, (Point{20, 0}));
    Scene to = sceneOf({{{40, 0}, 4, {200, 0, 0}, 0}, {{10, 80}, 8, {}, 1}, {{5, 5}, 8, {}, 2}});
    to.lines = {{{40, 0}, {10, 80}, 4, {}, 0.5, 0, 1}, {{5, 5}, {10, 80}, 1, {}, 1, 1, 2}};

    to.marks = {{{40, 0}, 6, {}, 0}};

    const Scene half = sceneBetween(from, to, 0.5);
    EXPECT_EQ(half.marks[0].radius, 8) << "around the circle, which is 6 large";
    ASSERT_EQ(half.circles.size(), 4U);
    EXPECT_EQ(half.circles[0].radius, 4) << "the one who leaves, below the others";
    EXPECT_EQ(half.circles[1].center, (Point{30, 0}));
    EXPECT_EQ(half.circles[1].radius, 6);
    EXPECT_EQ(half.circles[1].fill, (Color{100, 0, 0}));
    EXPECT_EQ(half.circles[3].center, (Point{5, 5})) << "the one who comes, at its place";
    EXPECT_EQ(half.circles[3].radius, 4);
    ASSERT_EQ(half.lines.size(), 3U);
    EXPECT_EQ(half.lines[0].opacity, 0.5) << "of the one who leaves";
    EXPECT_EQ(half.lines[0].from, (Point{10, 40})) << "at the one who stays";
    EXPECT_EQ(half.lines[1].width, 3);
    EXPECT_EQ(half.lines[1].from, (Point{30, 0}));
    EXPECT_EQ(half.lines[1].to, (Point{10, 40}));
    const Scene start = sceneBetween(from, to, 0);
    for (std::size_t at = 1; at < 3; ++at)
        EXPECT_EQ(start.circles[at].center, from.circles[at == 1 ? 2 : 1].center) << "no jump";
    EXPECT_EQ(sceneBetween(from, to, 1).circles.size(), 3U);
    EXPECT_EQ(std::count_if(half.texts.begin(), half.texts.end(),
                            [](const SceneText& text) { return text.opacity > 0; }),
              2);
}

/// A view of three cliques in a real window.
class PictureViewTest : public testing::Test {
 protected:
    PictureViewTest() {
        view_.onSelect = [this](int id) { selected_.push_back(id); };
        view_.onActivate = [this](int id) { activated_ = id; };
        view_.tipOf = [](const GraphPerson& person) {
            return "tip of " + std::to_string(person.contact.id);
        };
        view_.show(arrangeCommunity(chainOfCliques(3, 5)));
        window_->setInnerSize({6000, 4500});
        window_->show();
        platform_.driver().settle();
    }

    Driver& driver() { return platform_.driver(); }
    CanvasPoint placeOf(std::uint32_t person) {
        const CanvasSize size = area_.size();
        const SceneView whole = viewOfAll(view_.arrangement(), size.width, size.height, {});
        const Point place = placeIn(whole, view_.arrangement().positions[person]);
        return {place.x, place.y};
    }

    TestPlatform platform_;
    const std::unique_ptr<Window> window_ = platform_.toolkit().createWindow();
    DrawingArea& area_ = window_->addDrawingArea({0, 0, 6000, 4500});
    PictureView view_{area_};
    std::vector<int> selected_;
    int activated_ = 0;
};

TEST_F(PictureViewTest, selectsAndActivatesWhomTheUserPointsAt) {
    driver().point(area_, PointerAct::Move, placeOf(7));
    EXPECT_EQ(driver().shownTip(), "tip of 8");
    EXPECT_EQ(driver().pointerOver(area_), Pointer::Hand);
    driver().click(area_, placeOf(7));
    EXPECT_EQ(view_.selected(), 8);
    driver().click(area_, {3, 3});
    EXPECT_EQ(selected_, (std::vector<int>{8, 0}));
    driver().point(area_, PointerAct::DoubleClick, placeOf(2));
    EXPECT_EQ(activated_, 3);
    view_.select(99);
    EXPECT_EQ(view_.selected(), 0) << "nobody in the picture";
    EXPECT_EQ(selected_.size(), 3U) << "select() calls no handler";
}

TEST_F(PictureViewTest, isZoomedWithTheWheelAndDragged) {
    const CanvasPoint person = placeOf(7);
    driver().turnWheel(area_, person, 3);
    driver().click(area_, person);
    EXPECT_EQ(view_.selected(), 8) << "it is still under the pointer";
    driver().point(area_, PointerAct::Press, person);
    driver().point(area_, PointerAct::Move, {person.x - 30, person.y + 40});
    driver().point(area_, PointerAct::Release, {person.x - 30, person.y + 40});
    EXPECT_EQ(selected_.size(), 1U) << "a drag selects nobody";
    driver().click(area_, {person.x - 30, person.y + 40});
    EXPECT_EQ(selected_, (std::vector<int>{8, 8})) << "it moved along";
}

}  // namespace
}  // namespace pelk
