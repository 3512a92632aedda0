#include "map/scene.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "map/group_names.h"
#include "map/labels.h"

namespace pelk {
namespace {

constexpr double kMargin = 12;
/// The room that the labels of people at the left and right rim have, in sizes of the font.
constexpr double kLabelRoom = 5;
constexpr double kLabelRoomOfCircle = 10;
/// No label is wider than so many sizes of the font.
constexpr double kWidestLabel = 20;
/// The height of a text and of the part above its baseline, in sizes of the font.
constexpr double kTextHeight = 1.25;
constexpr double kAscent = 0.95;
constexpr double kTitleSize = 1.4;
constexpr double kLegendWidth = 19;
constexpr double kLegendLine = 1.7;
/// The legend lists at most so many groups: those with a colour of their own.
constexpr std::size_t kListedGroups = 9;
constexpr std::size_t kSmallestListedGroup = 3;
/// The scale of a picture of few people, in sizes of the font.
constexpr double kLargestScale = 0.16;
/// Circles grow with the scale up to this one, in sizes of the font: beyond it, the room is for
/// labels.
constexpr double kLargestCircleScale = 0.08;
constexpr double kSmallestCircle = 1.5;
constexpr double kThinnestLine = 0.7;
constexpr int kRings = 3;

double titleHeight(const SceneStyle& style) {
    return style.title.empty() ? 0 : style.fontSize * kTitleSize * 2;
}

/// Returns the part of a picture where people and labels may be. A circle leaves room for the
/// legend in its corner.
Box areaOf(const Arrangement& arrangement, double width, double height, const SceneStyle& style) {
    const bool hasColumn = style.hasLegend && !arrangement.isCircle;
    const double legend = hasColumn ? kLegendWidth * style.fontSize : 0;
    return {kMargin, kMargin + titleHeight(style), width - kMargin - legend, height - kMargin};
}

class SceneMaker {
 public:
    SceneMaker(const Arrangement& arrangement, const SceneView& view, const SceneStyle& style)
        : arrangement_(arrangement), view_(view), style_(style) {}

    Scene make() {
        scene_.width = view_.width;
        scene_.height = view_.height;
        scene_.background = style_.palette.background;
        scene_.textColor = style_.palette.text;
        scene_.ringColor = style_.palette.line;
        addRings();
        addLines();
        addCircles();
        addTitle();
        if (style_.hasLegend)
            addLegend();
        addLabels();
        return std::move(scene_);
    }

 private:
    Point placeOf(Point position) const { return position * view_.scale + view_.offset; }
    double radiusOf(std::uint32_t person) const {
        const double scale = std::min(view_.scale, kLargestCircleScale * style_.fontSize);
        return std::max(arrangement_.radii[person] * scale, kSmallestCircle);
    }
    Color colorOf(std::uint32_t group) const {
        return group == kNoGroup ? style_.palette.text : style_.palette.ofGroup(group);
    }

    void addRings() {
        if (!arrangement_.isCircle)
            return;
        const double farthest = farthestOf(arrangement_.positions);
        for (int ring = 1; ring <= kRings; ++ring)
            scene_.rings.push_back(
                {placeOf({}), farthest * view_.scale * ring / kRings, {}, kNobody});
    }

    void addLines() {
        double strongest = 1;
        for (const GraphLink& link : arrangement_.graph.links)
            strongest = std::max(strongest, link.weight);
        for (const GraphLink& link : arrangement_.graph.links) {
            const std::uint32_t to = arrangement_.groups[link.to];
            const bool isSpoke = arrangement_.isCircle && link.from == 0;
            const bool isInside = isSpoke || arrangement_.groups[link.from] == to;
            const double share = std::sqrt(link.weight / strongest);
            scene_.lines.push_back({placeOf(arrangement_.positions[link.from]),
                                    placeOf(arrangement_.positions[link.to]),
                                    kThinnestLine + (isSpoke ? 5 : 3) * share,
                                    isInside ? colorOf(to) : style_.palette.line,
                                    isInside ? 0.3 + 0.4 * share : 0.55, link.from, link.to});
        }
        // The strongest lines are drawn last, over the others.
        std::stable_sort(scene_.lines.begin(), scene_.lines.end(),
                         [](const SceneLine& a, const SceneLine& b) { return a.width < b.width; });
    }

    void addCircles() {
        for (const std::uint32_t person : strongestFirst())
            scene_.circles.push_back({placeOf(arrangement_.positions[person]), radiusOf(person),
                                      colorOf(arrangement_.groups[person]), person});
    }

    std::vector<std::uint32_t> strongestFirst() const {
        std::vector<std::uint32_t> order(arrangement_.positions.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(), [this](std::uint32_t a, std::uint32_t b) {
            return arrangement_.radii[a] > arrangement_.radii[b];
        });
        return order;
    }

    void addLabels() {
        std::vector<LabelledCircle> labelled;
        std::vector<std::string> texts;
        std::vector<Box> others;
        for (const SceneText& text : scene_.texts)
            others.push_back(text.box);
        std::size_t first = 0;
        const std::vector<SceneCircle> circles = inLabelOrder(first);
        for (const SceneCircle& circle : circles) {
            texts.push_back(labelText(circle));
            labelled.push_back({circle.center, circle.radius,
                                style_.textWidth(texts.back()) * style_.fontSize,
                                kTextHeight * style_.fontSize,
                                arrangement_.isCircle && circle.center.x < placeOf({}).x,
                                labelled.size() < first});
        }
        const std::vector<std::optional<Box>> places =
            placeLabels(labelled, areaOf(arrangement_, view_.width, view_.height, style_), others);
        for (std::size_t at = 0; at < places.size(); ++at)
            if (places[at] && !texts[at].empty())
                addText(texts[at], {places[at]->left, places[at]->top}, style_.fontSize,
                        at < first || (arrangement_.isCircle && circles[at].person == 0),
                        circles[at].person);
    }

    /// Returns the circles, those that are labelled first before all others, and their number.
    std::vector<SceneCircle> inLabelOrder(std::size_t& first) const {
        std::vector<std::size_t> rank(arrangement_.positions.size(), style_.labelledFirst.size());
        for (std::size_t at = style_.labelledFirst.size(); at-- > 0;)
            rank[style_.labelledFirst[at]] = at;
        const auto rankOf = [&](const SceneCircle& circle) {
            return circle.person == kNobody ? style_.labelledFirst.size() : rank[circle.person];
        };
        std::vector<SceneCircle> circles = scene_.circles;
        std::stable_sort(circles.begin(), circles.end(),
                         [&rankOf](const SceneCircle& a, const SceneCircle& b) {
                             return rankOf(a) < rankOf(b);
                         });
        const auto others = std::find_if(circles.begin(), circles.end(), [&](const SceneCircle& c) {
            return rankOf(c) == style_.labelledFirst.size();
        });
        first = static_cast<std::size_t>(others - circles.begin());
        return circles;
    }

    /// Returns the label of a person; an empty one in the legend.
    std::string labelText(const SceneCircle& circle) const {
        return circle.person == kNobody
                   ? ""
                   : shortenedTo(kWidestLabel,
                                 labelOf(arrangement_.graph.people[circle.person].contact),
                                 style_.textWidth);
    }

    void addText(const std::string& text, Point corner, double size, bool bold,
                 std::uint32_t person = kNobody) {
        const Box box{corner.x, corner.y, corner.x + style_.textWidth(text) * size,
                      corner.y + kTextHeight * size};
        scene_.texts.push_back(
            {{corner.x, corner.y + kAscent * size}, text, size, bold, box, person});
    }

    void addTitle() {
        const double size = style_.fontSize * kTitleSize;
        if (!style_.title.empty())
            addText(shortenedTo((view_.width - 2 * kMargin) / size, style_.title, style_.textWidth),
                    {kMargin, kMargin}, size, true);
    }

    void addLegend() {
        const std::vector<std::string> names = groupNames(arrangement_.graph, arrangement_.groups);
        const std::vector<std::size_t> sizes = groupSizes(arrangement_.groups);
        Point corner{view_.width - kMargin - kLegendWidth * style_.fontSize,
                     kMargin + titleHeight(style_)};
        for (std::uint32_t group = 0; group < std::min(sizes.size(), kListedGroups); ++group)
            if (sizes[group] >= kSmallestListedGroup) {
                addLegendLine(corner, group, names[group], sizes[group]);
                corner.y += kLegendLine * style_.fontSize;
            }
    }

    void addLegendLine(Point corner, std::uint32_t group, const std::string& name,
                       std::size_t people) {
        const double radius = style_.fontSize / 2;
        const double center = corner.y + kTextHeight * style_.fontSize / 2;
        scene_.circles.push_back(
            {{corner.x + 2 * radius, center}, radius, colorOf(group), kNobody});
        const std::string count = " (" + std::to_string(people) + ")";
        const double room = kLegendWidth - 2 - style_.textWidth(count);
        addText(shortenedTo(room, name, style_.textWidth) + count,
                {corner.x + 4 * radius, corner.y}, style_.fontSize, false);
    }

    const Arrangement& arrangement_;
    const SceneView& view_;
    const SceneStyle& style_;
    Scene scene_;
};

}  // namespace

SceneView viewOfAll(const Arrangement& arrangement, double width, double height,
                    const SceneStyle& style) {
    Box area = areaOf(arrangement, width, height, style);
    const double room = arrangement.isCircle ? kLabelRoomOfCircle : kLabelRoom;
    area.left += room * style.fontSize;
    area.right -= room * style.fontSize;
    const double rim = farthestOf(arrangement.positions);
    const Box bounds = arrangement.isCircle ? Box{-rim, -rim, rim, rim}
                                            : boundsOf(arrangement.positions, arrangement.radii);
    SceneView view{width, height, kLargestScale * style.fontSize, {}};
    if (bounds.width() > 0)
        view.scale =
            std::min({view.scale, area.width() / bounds.width(), area.height() / bounds.height()});
    view.offset = area.center() - bounds.center() * view.scale;
    return view;
}

Scene makeScene(const Arrangement& arrangement, const SceneView& view, const SceneStyle& style) {
    return SceneMaker(arrangement, view, style).make();
}

}  // namespace pelk
