#include "map/picture_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "map/draw_scene.h"
#include "map/hit_test.h"
#include "map/picture_files.h"
#include "map/scene_view.h"
#include "map/transition.h"

namespace pelk {
namespace {

constexpr double kMoveSeconds = 0.5;
constexpr double kGlideSeconds = 0.25;
constexpr double kNotchFactor = 1.25;
constexpr double kKeyFactor = 1.5;
/// The share of the area that an arrow key moves the picture by.
constexpr double kKeyShare = 0.2;
/// A press becomes a drag when the pointer has moved that far.
constexpr double kDragDistance = 4;
/// Views of a smaller area make no sense; the picture is cut then.
constexpr CanvasSize kSmallestArea{240, 160};

Point pointOf(CanvasPoint point) {
    return {point.x, point.y};
}

}  // namespace

PictureView::PictureView(DrawingArea& area) : area_(area) {
    style_.textWidth = [this](std::string_view text) {
        return area_.widthOf(text, style_.fontSize) / style_.fontSize;
    };
    takeColors();
    area_.onPaint = [this](Canvas& canvas) { paint(canvas); };
    area_.onResize = [this] { fitArea(); };
    area_.onPress = [this](CanvasPoint point) { press(pointOf(point)); };
    area_.onMove = [this](CanvasPoint point) { move(pointOf(point)); };
    area_.onRelease = [this](CanvasPoint point) { release(pointOf(point)); };
    area_.onLeave = [this] { hover(kNobody); };
    area_.onDoubleClick = [this](CanvasPoint point) { activate(pointOf(point)); };
    area_.onWheel = [this](CanvasPoint point, double notches) {
        turnWheel(pointOf(point), notches);
    };
    area_.onKey = [this](DrawingKey key) { pressKey(key); };
}

void PictureView::show(Arrangement arrangement) {
    std::optional<Scene> shown;
    if (!arrangement_.graph.people.empty()) {
        shown = isMoving() ? sceneBetween(*before_, scene(), eased(share_)) : scene();
        renumberPeople(*shown, arrangement_.graph, arrangement.graph);
    }
    const int selectedId = selected();
    arrangement_ = std::move(arrangement);
    numbers_.clear();
    for (std::uint32_t number = 0; number < arrangement_.graph.people.size(); ++number)
        numbers_.emplace(arrangement_.graph.people[number].contact.id, number);
    marks_ = {numberOf(selectedId), {}, {}};
    hover(kNobody);
    isWhole_ = true;
    measure();
    jumpTo(whole_);
    marksChanged();
    if (shown)
        startMove(std::move(*shown));
}

void PictureView::startMove(Scene before) {
    before_ = std::move(before);
    share_ = 0;
    area_.animate(kMoveSeconds, [this, animation = ++animation_](double share) {
        if (animation != animation_)
            return;
        share_ = share;
        if (share >= 1)
            before_.reset();
        area_.redraw();
    });
}

void PictureView::paint(Canvas& canvas) {
    painted_ = view_;
    if (isMoving())
        draw(sceneBetween(*before_, scene(), eased(share_)), canvas);
    else
        draw(scene(), canvas);
}

const Scene& PictureView::scene() {
    if (!scene_) {
        style_.labelledFirst = markedPeople(marks_);
        scene_ = makeScene(arrangement_, view_, style_);
        showMarks(*scene_, arrangement_, view_, marks_);
    }
    return *scene_;
}

void PictureView::takeColors() {
    style_.palette = paletteOn(area_.backgroundColor(), area_.textColor());
}

void PictureView::fitArea() {
    takeColors();
    before_.reset();
    measure();
    jumpTo(isWhole_ ? whole_ : allowed(resized(goal_, whole_.width, whole_.height)));
    area_.redraw();
}

void PictureView::measure() {
    const CanvasSize size = area_.size();
    whole_ = viewOfAll(arrangement_, std::max(size.width, kSmallestArea.width),
                       std::max(size.height, kSmallestArea.height), style_);
    bounds_ = boundsOf(arrangement_.positions, arrangement_.radii);
}

SceneView PictureView::allowed(const SceneView& view) const {
    return limited(view, whole_.scale, bounds_);
}

void PictureView::setView(const SceneView& view) {
    view_ = view;
    scene_.reset();
    const double scale = view.scale / painted_.scale;
    const Point corner = view.offset - painted_.offset * scale;
    area_.redrawMoved(scale, {corner.x, corner.y});
}

/// Ends an animation.
void PictureView::jumpTo(const SceneView& view) {
    ++animation_;
    goal_ = view;
    setView(view);
}

void PictureView::glideTo(const SceneView& view) {
    goal_ = view;
    area_.animate(kGlideSeconds, [this, start = view_, animation = ++animation_](double share) {
        if (animation == animation_)
            setView(between(start, goal_, eased(share)));
    });
}

void PictureView::zoomBy(double factor) {
    if (isMoving())
        return;
    isWhole_ = false;
    glideTo(allowed(zoomed(goal_, {goal_.width / 2, goal_.height / 2}, factor)));
}

void PictureView::panBy(double right, double down) {
    if (isMoving())
        return;
    isWhole_ = false;
    glideTo(allowed(moved(goal_, {-right * goal_.width, -down * goal_.height})));
}

void PictureView::zoomIn() {
    zoomBy(kKeyFactor);
}

void PictureView::zoomOut() {
    zoomBy(1 / kKeyFactor);
}

void PictureView::showAll() {
    if (isMoving())
        return;
    isWhole_ = true;
    glideTo(whole_);
}

void PictureView::turnWheel(Point point, double notches) {
    if (isMoving())
        return;
    isWhole_ = false;
    jumpTo(allowed(zoomed(view_, point, std::pow(kNotchFactor, notches))));
    hover(kNobody);
}

void PictureView::pressKey(DrawingKey key) {
    switch (key) {
        case DrawingKey::Left:
            return panBy(-kKeyShare, 0);
        case DrawingKey::Right:
            return panBy(kKeyShare, 0);
        case DrawingKey::Up:
            return panBy(0, -kKeyShare);
        case DrawingKey::Down:
            return panBy(0, kKeyShare);
        case DrawingKey::Plus:
            return zoomIn();
        case DrawingKey::Minus:
            return zoomOut();
        case DrawingKey::Home:
            return showAll();
    }
}

void PictureView::move(Point point) {
    if (press_)
        drag(point);
    else if (!isMoving())
        hover(personAt(scene(), point));
}

void PictureView::drag(Point point) {
    press_->isDrag = press_->isDrag || lengthOf(point - press_->start) >= kDragDistance;
    if (!press_->isDrag || isMoving())
        return;
    hover(kNobody);
    isWhole_ = false;
    jumpTo(allowed(moved(view_, point - std::exchange(press_->last, point))));
}

void PictureView::release(Point point) {
    const std::optional<Press> press = std::exchange(press_, std::nullopt);
    if (!press || press->isDrag || isMoving())
        return;
    marks_.selected = personAt(scene(), point);
    marksChanged();
    if (onSelect)
        onSelect(selected());
}

void PictureView::activate(Point point) {
    const int id = isMoving() ? 0 : idOf(personAt(scene(), point));
    hover(kNobody);
    if (id != 0 && onActivate)
        onActivate(id);
}

void PictureView::hover(std::uint32_t person) {
    if (std::exchange(hovered_, person) == person)
        return;
    area_.setHandPointer(person != kNobody);
    area_.showTip(person != kNobody && tipOf ? tipOf(arrangement_.graph.people[person]) : "");
}

void PictureView::select(int contactId) {
    marks_.selected = numberOf(contactId);
    marksChanged();
    glideInto(marks_.selected);
}

void PictureView::setPath(const std::vector<int>& contactIds) {
    marks_.path = numbersOf(contactIds);
    marksChanged();
    if (!marks_.path.empty())
        glideInto(marks_.path.front());
}

void PictureView::setFound(const std::vector<int>& contactIds) {
    marks_.found = numbersOf(contactIds);
    marksChanged();
}

void PictureView::glideInto(std::uint32_t person) {
    if (person == kNobody || isMoving())
        return;
    const SceneView goal = movedInto(goal_, arrangement_.positions[person]);
    if (goal.offset == goal_.offset)
        return;
    isWhole_ = false;
    glideTo(goal);
}

void PictureView::marksChanged() {
    scene_.reset();
    describe();
    area_.redraw();
}

/// A screen reader says this after the name of the area.
void PictureView::describe() {
    std::string text = pictureTitle(arrangement_);
    if (marks_.selected != kNobody)
        text += ". Selected: " + labelOf(arrangement_.graph.people[marks_.selected].contact);
    area_.setDescription(text);
}

std::uint32_t PictureView::numberOf(int contactId) const {
    const auto found = numbers_.find(contactId);
    return found == numbers_.end() ? kNobody : found->second;
}

/// Leaves out those who are not in the picture.
std::vector<std::uint32_t> PictureView::numbersOf(const std::vector<int>& contactIds) const {
    std::vector<std::uint32_t> numbers;
    for (const int id : contactIds)
        if (const std::uint32_t number = numberOf(id); number != kNobody)
            numbers.push_back(number);
    return numbers;
}

int PictureView::idOf(std::uint32_t person) const {
    return person == kNobody ? 0 : arrangement_.graph.people[person].contact.id;
}

}  // namespace pelk
