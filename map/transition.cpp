#include "map/transition.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>
#include <utility>

#include "platform/readable_color.h"

namespace pelk {
namespace {

double mixed(double from, double to, double share) {
    return from + (to - from) * share;
}

Point mixed(Point from, Point to, double share) {
    return from + (to - from) * share;
}

Color mixed(const Color& from, const Color& to, double share) {
    return mixedColor(from, to, static_cast<int>(std::lround(share * 100)));
}

/// The circles, labels or marks of a scene by person.
template <typename Item>
class ByPerson {
 public:
    explicit ByPerson(const std::vector<Item>& items) {
        for (const Item& item : items)
            if (item.person != kNobody)
                items_.emplace(item.person, &item);
    }
    const Item* of(std::uint32_t person) const {
        const auto found = items_.find(person);
        return found == items_.end() ? nullptr : found->second;
    }

 private:
    std::unordered_map<std::uint32_t, const Item*> items_;
};

using Ends = std::pair<std::uint32_t, std::uint32_t>;

Ends endsOf(const SceneLine& line) {
    return {line.fromPerson, line.toPerson};
}

class Mixer {
 public:
    Mixer(const Scene& from, const Scene& to, double share)
        : from_(from),
          to_(to),
          share_(share),
          circlesBefore_(from.circles),
          circlesAfter_(to.circles),
          textsBefore_(from.texts),
          textsAfter_(to.texts) {}

    Scene mix() {
        scene_ = to_;
        addCircles();
        moveRings();
        addLines();
        moveMarks();
        addTexts();
        return std::move(scene_);
    }

 private:
    /// Those who vanish are below the others.
    void addCircles() {
        std::vector<SceneCircle> circles;
        for (const SceneCircle& circle : from_.circles)
            if (circlesAfter_.of(circle.person) == nullptr) {
                circles.push_back(circle);
                circles.back().radius *= 1 - share_;
            }
        for (SceneCircle circle : to_.circles) {
            const SceneCircle* const before = circlesBefore_.of(circle.person);
            const double radius = before == nullptr ? 0 : before->radius;
            circle.center = placeOf(circle.person, circle.center);
            circle.radius = mixed(radius, circle.radius, share_);
            if (before != nullptr)
                circle.fill = mixed(before->fill, circle.fill, share_);
            circles.push_back(circle);
        }
        scene_.circles = std::move(circles);
    }

    /// Returns where the person is now, or `otherwise` for those who do not move.
    Point placeOf(std::uint32_t person, Point otherwise) const {
        const SceneCircle* const before = circlesBefore_.of(person);
        const SceneCircle* const after = circlesAfter_.of(person);
        return before == nullptr || after == nullptr ? otherwise
                                                     : mixed(before->center, after->center, share_);
    }

    void moveRings() {
        for (std::size_t at = 0; at < std::min(from_.rings.size(), to_.rings.size()); ++at) {
            SceneCircle& ring = scene_.rings[at];
            ring.center = mixed(from_.rings[at].center, ring.center, share_);
            ring.radius = mixed(from_.rings[at].radius, ring.radius, share_);
        }
    }

    void addLines() {
        std::vector<SceneLine> lines;
        std::map<Ends, const SceneLine*> before;
        for (const SceneLine& line : from_.lines)
            if (line.toPerson == kNobody || !before.emplace(endsOf(line), &line).second)
                lines.push_back(fadedLine(line, 1 - share_));
        std::vector<SceneLine> after;
        for (const SceneLine& line : to_.lines) {
            const auto found = before.find(endsOf(line));
            if (found == before.end()) {
                after.push_back(fadedLine(line, share_));
            } else {
                after.push_back(mixedLine(*found->second, line));
                before.erase(found);
            }
        }
        for (const auto& [ends, line] : before)
            lines.push_back(fadedLine(*line, 1 - share_));
        lines.insert(lines.end(), after.begin(), after.end());
        scene_.lines = std::move(lines);
    }

    SceneLine fadedLine(SceneLine line, double opacity) const {
        line.opacity *= opacity;
        line.from = placeOf(line.fromPerson, line.from);
        line.to = placeOf(line.toPerson, line.to);
        return line;
    }

    SceneLine mixedLine(const SceneLine& before, const SceneLine& after) const {
        SceneLine line = fadedLine(after, 1);
        line.width = mixed(before.width, after.width, share_);
        line.color = mixed(before.color, after.color, share_);
        line.opacity = mixed(before.opacity, after.opacity, share_);
        return line;
    }

    void moveMarks() {
        for (SceneCircle& mark : scene_.marks) {
            mark.center = placeOf(mark.person, mark.center);
            const SceneCircle* const before = circlesBefore_.of(mark.person);
            const SceneCircle* const after = circlesAfter_.of(mark.person);
            if (before != nullptr && after != nullptr)
                mark.radius += (before->radius - after->radius) * (1 - share_);
        }
    }

    /// A label moves with its circle. One that only the first scene has vanishes before those of
    /// the second one appear, so that they do not cover each other.
    void addTexts() {
        std::vector<SceneText> texts;
        for (const SceneText& text : from_.texts)
            if (textsAfter_.of(text.person) == nullptr)
                texts.push_back(shifted(text, circlesBefore_, std::max(0.0, 1 - 2 * share_)));
        for (const SceneText& text : to_.texts)
            if (const SceneText* const before = textsBefore_.of(text.person)) {
                texts.push_back(text);
                moveText(texts.back(), mixed(before->start, text.start, share_));
            } else {
                texts.push_back(shifted(text, circlesAfter_, std::max(0.0, 2 * share_ - 1)));
            }
        scene_.texts = std::move(texts);
    }

    SceneText shifted(SceneText text, const ByPerson<SceneCircle>& circles, double opacity) const {
        if (const SceneCircle* const circle = circles.of(text.person))
            moveText(text, text.start + placeOf(text.person, circle->center) - circle->center);
        text.opacity *= opacity;
        return text;
    }

    static void moveText(SceneText& text, Point start) {
        const Point by = start - text.start;
        text.start = start;
        text.box = {text.box.left + by.x, text.box.top + by.y, text.box.right + by.x,
                    text.box.bottom + by.y};
    }

    const Scene& from_;
    const Scene& to_;
    double share_;
    ByPerson<SceneCircle> circlesBefore_;
    ByPerson<SceneCircle> circlesAfter_;
    ByPerson<SceneText> textsBefore_;
    ByPerson<SceneText> textsAfter_;
    Scene scene_;
};

}  // namespace

void renumberPeople(Scene& scene, const Graph& from, const Graph& to) {
    std::unordered_map<int, std::uint32_t> numbers;
    for (std::uint32_t number = 0; number < to.people.size(); ++number)
        numbers.emplace(to.people[number].contact.id, number);
    const auto renumber = [&](std::uint32_t& person) {
        if (person == kNobody)
            return;
        const auto found = numbers.find(from.people[person].contact.id);
        person = found == numbers.end() ? kNobody : found->second;
    };
    for (std::vector<SceneCircle>* const circles : {&scene.circles, &scene.marks})
        for (SceneCircle& circle : *circles)
            renumber(circle.person);
    for (SceneText& text : scene.texts)
        renumber(text.person);
    for (SceneLine& line : scene.lines) {
        renumber(line.fromPerson);
        renumber(line.toPerson);
        if (line.fromPerson > line.toPerson) {
            std::swap(line.fromPerson, line.toPerson);
            std::swap(line.from, line.to);
        }
    }
}

Scene sceneBetween(const Scene& from, const Scene& to, double share) {
    return share >= 1 ? to : Mixer(from, to, share).mix();
}

}  // namespace pelk
