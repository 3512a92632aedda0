#pragma once
// A picture of people in a drawing area: the user zooms, moves, points at people and selects them.

#include <functional>
#include <string>
#include <vector>

#include "map/arrangement.h"
#include "map/scene.h"
#include "platform/controls.h"

namespace pelk {

class PictureView {
 public:
    /// The area is of the same window as the form and outlives the view, which sets its handlers.
    explicit PictureView(DrawingArea& area);

    /// Shows an arrangement as a whole. People who were in the picture before move to their new
    /// places; nothing jumps. Keeps the selection if that person is still there.
    void show(Arrangement arrangement);
    const Arrangement& arrangement() const;

    /// Selects a person by the id of the contact, and moves it into view; 0 or the id of nobody in
    /// the picture selects nobody. Calls no handler.
    void select(int contactId);
    int selected() const;
    /// Marks a chain of people with the lines between them; an empty one marks nothing.
    void setPath(std::vector<int> contactIds);
    /// Marks the people who were found; all others fade. An empty list marks nobody.
    void setFound(std::vector<int> contactIds);

    void zoomIn();
    void zoomOut();
    void showAll();

    /// Called when the user selects a person, or nobody (0), with a click.
    std::function<void(int contactId)> onSelect;
    /// Called when the user double-clicks a person.
    std::function<void(int contactId)> onActivate;
    /// Returns the text that is shown while the pointer is over a person; empty without a function.
    std::function<std::string(const GraphPerson& person)> tipOf;
};

}  // namespace pelk
