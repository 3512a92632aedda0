#include "map/marks.h"

#include <algorithm>
#include <cstddef>

#include "platform/readable_color.h"

namespace pelk {
namespace {

constexpr double kFaded = 0.25;
constexpr double kFadedText = 0.65;
constexpr int kFadedPercent = 75;
/// Labels start where the ring ends.
constexpr double kRingDistance = 2;
constexpr double kPathWidth = 4;
constexpr double kClearLine = 0.9;
/// More rings around people who were found would hide the picture; their colour tells them then.
constexpr std::size_t kMostRings = 40;

class Marker {
 public:
    Marker(Scene& scene, const Arrangement& arrangement, const SceneView& view, const Marks& marks)
        : scene_(scene),
          arrangement_(arrangement),
          view_(view),
          marks_(marks),
          isMarked_(arrangement.positions.size()) {
        for (const std::uint32_t person : markedPeople(marks))
            isMarked_[person] = true;
    }

    void show() {
        if (!marks_.found.empty() || !marks_.path.empty())
            fade();
        if (marks_.selected != kNobody)
            clearLinesOfSelected();
        for (std::size_t at = 1; at < marks_.path.size(); ++at)
            addStep(marks_.path[at - 1], marks_.path[at]);
        addRings();
    }

 private:
    bool isMarked(std::uint32_t person) const { return person != kNobody && isMarked_[person]; }

    void fade() {
        for (SceneLine& line : scene_.lines)
            if (!isMarked(line.fromPerson) || !isMarked(line.toPerson))
                line.opacity *= kFaded;
        for (SceneCircle& circle : scene_.circles)
            if (circle.person != kNobody && !isMarked(circle.person))
                circle.fill = mixedColor(circle.fill, scene_.background, kFadedPercent);
        for (SceneText& text : scene_.texts)
            if (text.person != kNobody && !isMarked(text.person))
                text.opacity = kFadedText;
    }

    void clearLinesOfSelected() {
        for (SceneLine& line : scene_.lines)
            if (line.fromPerson == marks_.selected || line.toPerson == marks_.selected)
                line.opacity = kClearLine;
    }

    /// Not all links of a chain have a line.
    void addStep(std::uint32_t from, std::uint32_t to) {
        scene_.lines.push_back(
            {placeOf(from), placeOf(to), kPathWidth, scene_.textColor, kClearLine, from, to});
    }

    Point placeOf(std::uint32_t person) const {
        return arrangement_.positions[person] * view_.scale + view_.offset;
    }

    bool hasRing(std::uint32_t person) const {
        return person == marks_.selected || marks_.found.size() <= kMostRings ||
               std::find(marks_.path.begin(), marks_.path.end(), person) != marks_.path.end();
    }

    void addRings() {
        for (const SceneCircle& circle : scene_.circles)
            if (isMarked(circle.person) && hasRing(circle.person))
                scene_.marks.push_back({circle.center, circle.radius + kRingDistance,
                                        scene_.textColor, circle.person});
    }

    Scene& scene_;
    const Arrangement& arrangement_;
    const SceneView& view_;
    const Marks& marks_;
    std::vector<bool> isMarked_;
};

}  // namespace

std::vector<std::uint32_t> markedPeople(const Marks& marks) {
    std::vector<std::uint32_t> people;
    if (marks.selected != kNobody)
        people.push_back(marks.selected);
    people.insert(people.end(), marks.path.begin(), marks.path.end());
    people.insert(people.end(), marks.found.begin(), marks.found.end());
    return people;
}

void showMarks(Scene& scene, const Arrangement& arrangement, const SceneView& view,
               const Marks& marks) {
    Marker(scene, arrangement, view, marks).show();
}

}  // namespace pelk
