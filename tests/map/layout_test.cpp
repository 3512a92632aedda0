// Where the people of a picture stand.

#include <algorithm>
#include <cstdint>

#include "map/arrangement.h"
#include "map/components.h"
#include "map/direction.h"
#include "map/layout.h"
#include "map/quad_tree.h"
#include "map/spread.h"
#include "map/stress_layout.h"
#include "tests/map/map_fixture.h"

namespace pelk {
namespace {

/// Returns a ring of people with links across, which no layout can draw without some stress.
Graph ringOf(std::uint32_t people) {
    std::vector<GraphLink> links;
    for (std::uint32_t person = 0; person < people; ++person) {
        links.push_back({person, (person + 1) % people, 1.0 + person % 7});
        if (person % 5 == 0)
            links.push_back({person, (person * 3 + 8) % people, 2});
    }
    return networkOf(people, links);
}

LinkLengths equalLengths(const Graph& graph) {
    return LinkLengths(graph.links.size(), 1);
}

/// FNV-1a over the positions and groups.
std::uint64_t checksumOf(const Arrangement& arrangement) {
    std::uint64_t sum = 0xCBF29CE484222325U;
    const auto add = [&sum](double number) {
        sum = (sum ^ static_cast<std::uint64_t>(static_cast<std::int64_t>(number * 64))) *
              0x100000001B3U;
    };
    for (std::size_t person = 0; person < arrangement.positions.size(); ++person) {
        add(arrangement.positions[person].x);
        add(arrangement.positions[person].y);
        add(arrangement.groups[person]);
    }
    return sum;
}

double leastGap(const Points& points, const std::vector<double>& radii) {
    double least = 1e9;
    for (std::size_t a = 0; a < points.size(); ++a)
        for (std::size_t b = 0; b < a; ++b)
            least = std::min(least, lengthOf(points[a] - points[b]) - radii[a] - radii[b]);
    return least;
}

TEST(Layout, putsEachPersonAtItsDistance) {
    // A path can be drawn without any stress: as a straight line.
    const Graph path = networkOf(4, {{0, 1, 1}, {1, 2, 1}, {2, 3, 1}});
    const LinkLengths lengths{1, 2, 1};
    const Points points = layOutConnected(Rows(path), lengths);
    EXPECT_NEAR(lengthOf(points[3] - points[0]), 4, 0.1);
    EXPECT_NEAR(lengthOf(points[2] - points[1]), 2, 0.1);
    EXPECT_LT(stressOf(points, Rows(path), lengths), 1e-3);
}

TEST(Layout, hasLittleStressWithFewPeopleAndWithMany) {
    for (const std::uint32_t people : {std::uint32_t{90}, std::uint32_t{400}}) {
        const Graph graph = ringOf(people);
        const Points points = layOutConnected(Rows(graph), equalLengths(graph));
        EXPECT_LT(stressOf(points, Rows(graph), equalLengths(graph)), 0.15) << people;
    }
}

TEST(Layout, approximatesForcesWell) {
    Points points;
    for (int at = 0; at < 500; ++at)
        points.push_back(directionOf(at * 0.37) * (at * 0.1 + 1));
    points.push_back(points[50]);
    const QuadTree tree(points);
    for (std::uint32_t person = 0; person < points.size(); person += 50) {
        Point exact;
        for (const Point& other : points)
            if (const Point away = points[person] - other; squareOf(away) > 0)
                exact = exact + away * (1 / squareOf(away));
        EXPECT_LT(lengthOf(tree.repulsionOn(person) - exact), 0.05 * lengthOf(exact) + 0.1);
    }
}

TEST(Layout, spreadsCirclesThatOverlap) {
    Points points(30, Point{1, 1});
    points.push_back({500, 500});
    const std::vector<double> radii(points.size(), 4);
    spread(points, radii, 2);
    EXPECT_GT(leastGap(points, radii), 1);
    EXPECT_EQ(points.back(), (Point{500, 500}));
}

TEST(Layout, findsTheConnectedParts) {
    EXPECT_EQ(componentsOf(Rows(networkOf(6, {{0, 4, 1}, {1, 3, 1}, {3, 5, 1}}))),
              (std::vector<std::vector<std::uint32_t>>{{1, 3, 5}, {0, 4}, {2}}));
}

TEST(Arrangement, isTheSameOnEverySystem) {
    EXPECT_EQ(checksumOf(arrangeCommunity(ringOf(60))), 15326464945440837377U);
    EXPECT_EQ(checksumOf(arrangeCommunity(ringOf(700))), 8210481802222131568U);
    EXPECT_EQ(checksumOf(arrangeCommunity(chainOfCliques(20, 6))), 3044634066046908576U);
    EXPECT_EQ(checksumOf(arrangeCircle(ringOf(60))), 8918496037593525115U);
}

TEST(Arrangement, keepsGroupsTogetherAndPartsApart) {
    std::vector<GraphLink> links = chainOfCliques(6, 8).links;
    links.push_back({48, 49, 1});
    const Arrangement whole = arrangeCommunity(networkOf(51, links));
    ASSERT_EQ(whole.positions.size(), 50U) << "nobody without a link";
    EXPECT_GT(leastGap(whole.positions, whole.radii), 1);
    for (std::size_t person = 0; person < 48; ++person)
        EXPECT_LT(lengthOf(whole.positions[person] - whole.positions[person / 8 * 8]), 150);
    const Box most = boundsOf({whole.positions.begin(), whole.positions.begin() + 48}, whole.radii);
    const Box rest = boundsOf({whole.positions.begin() + 48, whole.positions.end()}, {0, 0});
    EXPECT_FALSE(overlap(most, rest));
}

TEST(Arrangement, doesNotLetARimSetTheScale) {
    std::vector<GraphLink> links = ringOf(150).links;
    for (std::uint32_t person = 150; person < 162; ++person)
        links.push_back({person == 150 ? 0 : person - 1, person, 1});
    const Arrangement whole = arrangeCommunity(networkOf(162, links));
    const Box most = boundsOf({whole.positions.begin(), whole.positions.begin() + 150},
                              std::vector<double>(150, 1));
    const Box all = boundsOf(whole.positions, whole.radii);
    EXPECT_GT(most.width(), 0.7 * all.width());
}

TEST(Arrangement, ofNobodyOrOfFewIsEmptyOrFinite) {
    EXPECT_TRUE(arrangeCommunity({}).positions.empty());
    for (const Arrangement& arrangement :
         {arrangeCommunity(networkOf(2, {{0, 1, 5}})), arrangeCircle(networkOf(1, {})),
          arrangeCircle(networkOf(2, {{0, 1, 5}}))})
        for (const Point& position : arrangement.positions)
            EXPECT_LT(lengthOf(position), 1000);
}

TEST(Arrangement, putsStrongerRelationsNearerToTheMiddle) {
    std::vector<GraphLink> links;
    for (std::uint32_t person = 1; person <= 20; ++person)
        links.push_back({0, person, static_cast<double>(person / 2 + 1)});
    links.push_back({1, 20, 3});
    const Arrangement circle = arrangeCircle(networkOf(21, links));
    EXPECT_EQ(circle.positions[0], (Point{0, 0}));
    EXPECT_EQ(circle.groups[0], kNoGroup);
    EXPECT_EQ(circle.groups[1], circle.groups[20]);
    EXPECT_EQ(circle.graph.links.size(), 21U);
    for (std::uint32_t person = 2; person <= 20; ++person) {
        const double nearer = lengthOf(circle.positions[person]);
        const double farther = lengthOf(circle.positions[person - 1]);
        const bool isNearer = nearer < farther - 1;
        EXPECT_EQ(isNearer, person % 2 == 0) << person << " at " << nearer;
        EXPECT_LT(nearer, farther + 0.1);
    }
    EXPECT_GT(leastGap(circle.positions, circle.radii), 1);
}

TEST(Direction, goesRoundClockwiseFromTheTop) {
    const auto expectAt = [](double turn, Point expected) {
        EXPECT_LT(lengthOf(directionOf(turn) - expected), 1e-11) << turn;
    };
    expectAt(0, {0, -1});
    expectAt(0.25, {1, 0});
    expectAt(0.5, {0, 1});
    expectAt(0.75, {-1, 0});
    expectAt(1 / 12.0, {0.5, -std::sqrt(0.75)});
}

}  // namespace
}  // namespace pelk
