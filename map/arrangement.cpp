#include "map/arrangement.h"

#include <algorithm>
#include <cmath>

#include "map/backbone.h"
#include "map/components.h"
#include "map/equalize.h"
#include "map/layout.h"
#include "map/spread.h"

namespace pelk {
namespace {

/// The side of the square that a person has on average.
constexpr double kSpace = 48;
constexpr double kSmallestRadius = 4;
constexpr double kLargestRadius = 15;
/// The least distance between two circles, and between two parts of the network.
constexpr double kGap = 6;
constexpr double kPartGap = 60;
/// A link between groups is this much longer than one inside a group, so that groups stand apart.
constexpr double kLengthBetweenGroups = 2.5;
/// From so many people on, a part has a rim.
constexpr std::size_t kFewestToEqualize = 20;
/// The width of the whole, divided by its height, that parts are packed to.
constexpr double kAspect = 1.4;

LinkLengths lengthsByGroup(const Graph& graph, const Groups& groups) {
    LinkLengths lengths;
    for (const GraphLink& link : graph.links)
        lengths.push_back(groups[link.from] == groups[link.to] ? 1 : kLengthBetweenGroups);
    return lengths;
}

std::vector<double> radiiOf(const Graph& graph) {
    double most = 1;
    for (const GraphPerson& person : graph.people)
        most = std::max(most, person.mails);
    std::vector<double> radii;
    for (const GraphPerson& person : graph.people)
        radii.push_back(kSmallestRadius +
                        (kLargestRadius - kSmallestRadius) * std::sqrt(person.mails / most));
    return radii;
}

Point meanOf(const Points& points) {
    Point sum;
    for (const Point& point : points)
        sum = sum + point;
    return sum * (1 / static_cast<double>(points.size()));
}

/// Turns the points so that they extend most from left to right, as screens and pages do.
void turnWide(Points& points) {
    const Point mean = meanOf(points);
    double xx = 0;
    double xy = 0;
    double yy = 0;
    for (Point& point : points) {
        point = point - mean;
        xx += point.x * point.x;
        xy += point.x * point.y;
        yy += point.y * point.y;
    }
    // The main eigenvector of the covariance matrix.
    const double half = (xx - yy) / 2;
    const double root = std::sqrt(half * half + xy * xy);
    Point axis = half > 0 ? Point{half + root, xy} : Point{xy, root - half};
    const double length = lengthOf(axis);
    axis = length > 0 ? axis * (1 / length) : Point{1, 0};
    for (Point& point : points)
        point = {point.x * axis.x + point.y * axis.y, point.y * axis.x - point.x * axis.y};
}

void scaleToSpace(Points& points) {
    const Box box = boundsOf(points, std::vector<double>(points.size()));
    const double count = static_cast<double>(points.size());
    // A row of people has no area.
    const double area = std::max(box.width() * box.height(),
                                 (box.width() * box.width() + box.height() * box.height()) / count);
    if (area > 0)
        for (Point& point : points)
            point = point * (kSpace * std::sqrt(count / area));
}

void moveTo(Points& points, const std::vector<double>& radii, Point corner) {
    const Box box = boundsOf(points, radii);
    for (Point& point : points)
        point = point + corner - Point{box.left, box.top};
}

struct Part {
    std::vector<std::uint32_t> people;
    Points points;
    std::vector<double> radii;
    Box box;
};

Part layOutPart(const Arrangement& whole, const std::vector<std::uint32_t>& people) {
    const Graph graph = partOf(whole.graph, people);
    Groups groups;
    Part part{people, {}, {}, {}};
    for (const std::uint32_t person : people) {
        groups.push_back(whole.groups[person]);
        part.radii.push_back(whole.radii[person]);
    }
    part.points = layOutConnected(Rows(graph), lengthsByGroup(graph, groups));
    turnWide(part.points);
    if (people.size() >= kFewestToEqualize)
        equalize(part.points);
    scaleToSpace(part.points);
    spread(part.points, part.radii, kGap);
    part.box = boundsOf(part.points, part.radii);
    return part;
}

/// Places the parts in rows, from left to right and from top to bottom.
void pack(std::vector<Part>& parts) {
    double area = 0;
    double width = 0;
    for (const Part& part : parts) {
        area += (part.box.width() + kPartGap) * (part.box.height() + kPartGap);
        width = std::max(width, part.box.width());
    }
    width = std::max(width, std::sqrt(area * kAspect));
    Point corner;
    double rowHeight = 0;
    for (Part& part : parts) {
        if (corner.x > 0 && corner.x + part.box.width() > width) {
            corner = {0, corner.y + rowHeight + kPartGap};
            rowHeight = 0;
        }
        moveTo(part.points, part.radii, corner);
        corner.x += part.box.width() + kPartGap;
        rowHeight = std::max(rowHeight, part.box.height());
    }
}

/// Returns the numbers of the people who have a link.
std::vector<std::uint32_t> linkedPeople(const Graph& graph) {
    std::vector<std::uint32_t> people;
    for (std::uint32_t person = 0; person < graph.people.size(); ++person)
        if (graph.people[person].mails > 0)
            people.push_back(person);
    return people;
}

}  // namespace

Arrangement arrangeCommunity(const Graph& graph) {
    Arrangement whole;
    whole.graph = partOf(graph, linkedPeople(graph));
    whole.groups = findGroups(whole.graph);
    whole.radii = radiiOf(whole.graph);
    whole.graph = backboneOf(whole.graph);
    std::vector<Part> parts;
    for (const std::vector<std::uint32_t>& people : componentsOf(Rows(whole.graph)))
        parts.push_back(layOutPart(whole, people));
    pack(parts);
    whole.positions.resize(whole.graph.people.size());
    for (const Part& part : parts)
        for (std::size_t at = 0; at < part.people.size(); ++at)
            whole.positions[part.people[at]] = part.points[at];
    roundToGrid(whole.positions);
    return whole;
}

double farthestOf(const Points& positions) {
    double farthest = 0;
    for (const Point& position : positions)
        farthest = std::max(farthest, lengthOf(position));
    return farthest;
}

Box boundsOf(const Points& positions, const std::vector<double>& radii) {
    if (positions.empty())
        return {};
    Box box{positions[0].x, positions[0].y, positions[0].x, positions[0].y};
    for (std::size_t at = 0; at < positions.size(); ++at) {
        box.left = std::min(box.left, positions[at].x - radii[at]);
        box.top = std::min(box.top, positions[at].y - radii[at]);
        box.right = std::max(box.right, positions[at].x + radii[at]);
        box.bottom = std::max(box.bottom, positions[at].y + radii[at]);
    }
    return box;
}

}  // namespace pelk
