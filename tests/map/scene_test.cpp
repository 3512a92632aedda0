// What a picture shows.

#include "map/scene.h"
#include <algorithm>

#include "map/group_names.h"
#include "map/labels.h"
#include "map/marks.h"
#include "map/scene_view.h"
#include "map/svg.h"
#include "map/text_width.h"
#include "tests/map/map_fixture.h"

namespace pelk {
namespace {

Graph namedCliques(std::uint32_t cliques, std::uint32_t size) {
    Graph graph = chainOfCliques(cliques, size);
    for (GraphPerson& person : graph.people)
        person.contact.name = "Person number " + std::to_string(person.contact.id);
    return graph;
}

/// Expects that no two texts of the scene overlap and that all are in the picture.
void expectReadable(const Scene& scene) {
    for (std::size_t a = 0; a < scene.texts.size(); ++a) {
        const Box& box = scene.texts[a].box;
        EXPECT_GE(box.left, 0) << scene.texts[a].text;
        EXPECT_LE(box.right, scene.width) << scene.texts[a].text;
        EXPECT_LE(box.bottom, scene.height) << scene.texts[a].text;
        for (std::size_t b = 0; b < a; ++b)
            EXPECT_FALSE(overlap(box, scene.texts[b].box))
                << scene.texts[a].text << " and " << scene.texts[b].text;
    }
}

bool hasText(const Scene& scene, const std::string& text) {
    return std::any_of(scene.texts.begin(), scene.texts.end(),
                       [&text](const SceneText& label) { return label.text == text; });
}

TEST(Labels, standBesideTheirCirclesWhereThereIsRoom) {
    const Box area{0, 0, 200, 100};
    const auto boxes = placeLabels({{{50, 50}, 5, 40, 10},   // at the right
                                    {{95, 50}, 5, 40, 10},   // beyond the first label
                                    {{190, 50}, 5, 40, 10},  // at the left: the area ends
                                    {{60, 50}, 1, 300, 10},  // nowhere
                                    {{150, 90}, 5, 40, 10, true}},
                                   area, {{103, 44, 140, 56}});
    const auto edges = [&boxes](std::size_t at) {
        return boxes[at] ? std::pair(boxes[at]->left, boxes[at]->top) : std::pair(-1.0, -1.0);
    };
    EXPECT_EQ(edges(0), std::pair(2.0, 45.0)) << "at the left: circles are at the right";
    EXPECT_EQ(edges(1), std::pair(75.0, 58.0)) << "below: a text is at the right";
    EXPECT_EQ(edges(2), std::pair(142.0, 45.0));
    EXPECT_EQ(edges(3), std::pair(-1.0, -1.0));
    EXPECT_EQ(edges(4), std::pair(102.0, 85.0));
}

TEST(Scene, hasNoTwoTextsThatOverlapAtAnyZoom) {
    const Arrangement community = arrangeCommunity(namedCliques(12, 7));
    SceneStyle style;
    style.title = "A community";
    style.hasLegend = true;
    SceneView view = viewOfAll(community, 1200, 900, style);
    const Scene all = makeScene(community, view, style);
    expectReadable(all);
    EXPECT_GT(all.texts.size(), 20U);
    EXPECT_EQ(all.circles.size(), 84U + 9) << "with the legend";
    for (const SceneCircle& circle : all.circles)
        EXPECT_TRUE(circle.center.x > 0 && circle.center.x < 1200 && circle.center.y > 0 &&
                    circle.center.y < 900);
    // As a user zooms in, at one place after the other, with somebody selected.
    std::size_t labels = 0;
    for (int zoom = 0; zoom < 60; ++zoom) {
        const Point place = community.positions[zoom * 37 % community.positions.size()];
        view = movedInto(zoomed(view, {600, 450}, zoom % 20 == 19 ? 0.03 : 1.2), place);
        style.labelledFirst = {static_cast<std::uint32_t>(zoom)};
        Scene scene = makeScene(community, view, style);
        showMarks(scene, community, view, {static_cast<std::uint32_t>(zoom), {}, {}});
        expectReadable(scene);
        labels += scene.texts.size();
    }
    EXPECT_GT(labels, 60U * 15);
}

TEST(Scene, namesThePersonInTheMiddleAndTheStrongest) {
    Graph circle = namedCliques(1, 30);
    circle.people[29].contact.name = "Strongest";
    for (GraphLink& link : circle.links)
        link.weight = link.from == 0 && link.to == 29 ? 900 : 1;
    SceneStyle style;
    const Arrangement arrangement = arrangeCircle(circle);
    const Scene scene = makeScene(arrangement, viewOfAll(arrangement, 1400, 900, style), style);
    EXPECT_TRUE(hasText(scene, "Person number 1"));
    EXPECT_TRUE(hasText(scene, "Strongest"));
    const double leftmost =
        std::min_element(scene.texts.begin(), scene.texts.end(), [](const auto& a, const auto& b) {
            return a.box.left < b.box.left;
        })->box.right;
    EXPECT_TRUE(
        std::all_of(scene.circles.begin(), scene.circles.end(),
                    [leftmost](const SceneCircle& drawn) { return drawn.center.x > leftmost; }))
        << "labels stand outside";
    EXPECT_EQ(scene.rings.size(), 3U);
    EXPECT_EQ(scene.texts[0].bold, true);
    expectReadable(scene);
}

TEST(Scene, colorsGroupsApartInLightAndDark) {
    for (const Palette& palette : {lightPalette(), darkPalette()})
        for (std::uint32_t group = 0; group < 9; ++group)
            for (std::uint32_t other = 0; other <= 9; ++other)
                EXPECT_TRUE(group == other || palette.ofGroup(group) != palette.ofGroup(other));
}

TEST(GroupNames, areDomainsOfTheirOwnOrPeople) {
    Graph graph = chainOfCliques(3, 4);
    for (std::size_t person = 0; person < 12; ++person) {
        graph.people[person].contact.name = "P" + std::to_string(person);
        graph.people[person].contact.addresses = {person < 3 ? "a@mail.intel.com" : "x@gmail.com"};
    }
    EXPECT_EQ(groupNames(graph, findGroups(graph)),
              (std::vector<std::string>{"intel.com", "P4", "P8"}));
}

TEST(TextWidth, isNotLessThanThatOfWideFonts) {
    EXPECT_GT(estimatedWidth("Wm"), 1.9);
    EXPECT_GT(estimatedWidth("\u5468\u7430"), 2);
    EXPECT_EQ(estimatedWidth("e\u0301"), estimatedWidth("e"));
    EXPECT_EQ(shortenedTo(100, "Zo\u00EB", estimatedWidth), "Zo\u00EB");
    const std::string shortened = shortenedTo(2.6, "Zo\u00EB Smith", estimatedWidth);
    EXPECT_EQ(shortened, "Zo\u2026");
}

TEST(Svg, keepsHostileTextsAsTexts) {
    Scene scene;
    scene.width = 100.5;
    scene.texts.push_back({{1, 2}, "<b>\"Ann\" & 'Bob'\n\u202Egnp\x01", 12, true, {}});
    const std::string svg = svgOf(scene);
    EXPECT_NE(svg.find(">&lt;b&gt;&quot;Ann&quot; &amp; &#39;Bob&#39; \uFFFDgnp </text>"),
              std::string::npos)
        << svg;
    EXPECT_NE(svg.find("width=\"100.5\""), std::string::npos);
    const std::unique_ptr<XmlDocument> document = makeXmlDocument();
    EXPECT_TRUE(document->loadXml(svg)) << document->parseError();
}

}  // namespace
}  // namespace pelk
