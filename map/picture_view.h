#pragma once
// A picture of people in a drawing area: the user zooms, moves, points at people and selects them.

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "map/arrangement.h"
#include "map/marks.h"
#include "map/scene.h"
#include "platform/controls.h"

namespace pelk {

class PictureView {
 public:
    /// The area is of the same window as the form and outlives the view, which sets its handlers.
    explicit PictureView(DrawingArea& area);
    PictureView(const PictureView&) = delete;
    PictureView& operator=(const PictureView&) = delete;

    /// Shows an arrangement as a whole. People who were in the picture before move to their new
    /// places; nothing jumps. Keeps the selection if that person is still there, and no other mark.
    void show(Arrangement arrangement);
    const Arrangement& arrangement() const { return arrangement_; }

    /// Selects a person by the id of the contact, and moves it into view; 0 or the id of nobody in
    /// the picture selects nobody. Calls no handler.
    void select(int contactId);
    /// Returns the id of the selected contact; 0 if nobody is selected.
    int selected() const { return idOf(marks_.selected); }
    /// Marks a chain of people with the lines between them, and moves its start into view; an empty
    /// one marks nothing.
    void setPath(const std::vector<int>& contactIds);
    /// Marks the people who were found; all others fade. An empty list marks nobody.
    void setFound(const std::vector<int>& contactIds);

    void zoomIn();
    void zoomOut();
    void showAll();

    /// Called when the user selects a person, or nobody (0), with a click.
    std::function<void(int contactId)> onSelect;
    /// Called when the user double-clicks a person.
    std::function<void(int contactId)> onActivate;
    /// Returns the text that is shown while the pointer is over a person; empty without a function.
    std::function<std::string(const GraphPerson& person)> tipOf;

 private:
    /// What the user does with the button pressed.
    struct Press {
        Point start;
        Point last;
        bool isDrag = false;
    };

    void paint(Canvas& canvas);
    const Scene& scene();
    void fitArea();
    void measure();
    void takeColors();

    void press(Point point) { press_ = Press{point, point}; }
    void move(Point point);
    void drag(Point point);
    void release(Point point);
    void activate(Point point);
    void hover(std::uint32_t person);
    void turnWheel(Point point, double notches);
    void pressKey(DrawingKey key);

    bool isMoving() const { return before_.has_value(); }
    SceneView allowed(const SceneView& view) const;
    void setView(const SceneView& view);
    void jumpTo(const SceneView& view);
    void glideTo(const SceneView& view);
    void glideInto(std::uint32_t person);
    void zoomBy(double factor);
    void panBy(double right, double down);
    void startMove(Scene before);
    void marksChanged();
    void describe();

    std::uint32_t numberOf(int contactId) const;
    std::vector<std::uint32_t> numbersOf(const std::vector<int>& contactIds) const;
    int idOf(std::uint32_t person) const;

    DrawingArea& area_;
    Arrangement arrangement_;
    /// By the id of the contact.
    std::unordered_map<int, std::uint32_t> numbers_;
    SceneStyle style_;
    Marks marks_;
    /// What is in view now, and once the view has stopped gliding.
    SceneView view_;
    SceneView goal_;
    /// The view of the whole picture, and its bounds.
    SceneView whole_;
    Box bounds_;
    /// Whether the whole picture is in view, and stays so when the area gets another size.
    bool isWhole_ = true;
    /// The view that was painted last.
    SceneView painted_;
    /// The picture of the view; nothing until it is painted.
    std::optional<Scene> scene_;
    /// While people move: the scene they come from, and the share of the way.
    std::optional<Scene> before_;
    double share_ = 0;
    /// The number of the last animation: frames of earlier ones do nothing.
    int animation_ = 0;
    std::optional<Press> press_;
    std::uint32_t hovered_ = kNobody;
};

}  // namespace pelk
