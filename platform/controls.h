#pragma once
// The windows and controls that forms are made of, with no more than the forms need.
//
// Positions and sizes are in twips, relative to the top left corner of the window's inner area:
// the client area without its strips.
// The toolkit chooses the size of a twip so that a button 250 twips high fits the user's font; on a
// plain screen that is close to the nominal 1/1440 inch.
//
// Handlers report what the user does; setters never call them. A handler may hide or change the
// window that called it. An exception that a handler throws is shown to the user and goes no
// further. All calls are made on the thread that runs the message loop.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/canvas.h"
#include "platform/shortcuts.h"
#include "platform/tree_model.h"

namespace pelk {

struct Size {
    int width = 0;
    int height = 0;
};

struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Rect&, const Rect&) = default;
};

/// A position on the screen in the toolkit's own units. Forms pass it on without computing with it.
struct ScreenPoint {
    int x = 0;
    int y = 0;
};

class Control {
 public:
    virtual ~Control() = default;
    virtual Rect bounds() const = 0;
    virtual void setBounds(const Rect& bounds) = 0;
    virtual void setEnabled(bool enabled) = 0;
    /// Moves the keyboard focus to this control within its window and, in a text box, selects the
    /// text. Requires: the window is visible and the control enabled.
    virtual void focus() = 0;
    /// Shows the arrow over this control even while its window shows the hourglass.
    virtual void keepArrowPointer() = 0;
};

/// Text that the user cannot edit. Long text wraps within the bounds.
class Label : public Control {
 public:
    virtual void setText(const std::string& text) = 0;
    /// Paints the label before this returns, without handling other events.
    virtual void repaint() = 0;
};

/// Shows an image of the tree next to a text that refers to it.
class Picture : public Control {};

class Button : public Control {
 public:
    std::function<void()> onClick;
};

/// A radio button. At most one option button of a window is checked: checking one, by the user or
/// by code, clears the others.
class OptionButton : public Control {
 public:
    virtual void setChecked(bool checked) = 0;

    /// Called when the user clicks the button, whether or not it was checked.
    std::function<void()> onClick;
};

/// One line of text that the user edits.
class TextBox : public Control {
 public:
    virtual void setText(const std::string& text) = 0;
    virtual std::string text() const = 0;
    /// Shows a hint in the box while it is empty.
    virtual void setPlaceholder(const std::string& hint) = 0;

    /// Called when the user edits the text.
    std::function<void()> onChange;
    /// Called when the user presses Enter or Esc in the box. Without a handler the key acts on the
    /// window.
    std::function<void()> onEnter;
    std::function<void()> onEscape;
    /// Called with -1 when the user presses the Up key in the box, with 1 for Down.
    std::function<void(int step)> onStep;
    /// Called when the box gets the focus, also from code.
    std::function<void()> onFocus;
};

/// Chooses an integer. An arrow key moves it by one.
class Slider : public Control {
 public:
    virtual void setRange(int minimum, int maximum) = 0;
    /// Clamps the value to the range.
    virtual void setValue(int value) = 0;
    virtual int value() const = 0;

    /// Called at each step while the user moves the slider.
    std::function<void()> onChange;
};

class ProgressBar : public Control {
 public:
    /// A value at the maximum shows a full bar, even if the range is a single value.
    virtual void setRange(int minimum, int maximum) = 0;
    /// Clamps the value to the range.
    virtual void setValue(int value) = 0;
};

struct ListRow {
    std::string text;
    /// What the form attaches to the row.
    std::string tag;
};

/// A list of one column from which the user selects any number of rows. This class owns the rows;
/// the native list only shows them.
class ListView : public Control {
 public:
    const std::vector<ListRow>& rows() const { return rows_; }
    void addRow(ListRow row) {
        rows_.push_back(std::move(row));
        rowAdded();
    }
    void removeRow(std::size_t row) {
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
        rowRemoved(row);
    }
    virtual bool isSelected(std::size_t row) const = 0;

    /// Makes the column as wide as the text. The header itself is hidden; longer rows can be
    /// scrolled into view.
    virtual void setColumnHeader(const std::string& text) = 0;

 protected:
    /// Called after the rows have changed: the last one is new, or `row` is gone.
    virtual void rowAdded() = 0;
    virtual void rowRemoved(std::size_t row) = 0;

 private:
    std::vector<ListRow> rows_;
};

/// Two numbers of a chart under one label, such as the e-mails of a year.
struct ChartBar {
    /// Empty labels leave room for the others.
    std::string label;
    std::uint64_t above = 0;
    std::uint64_t below = 0;
};

struct ChartContent {
    /// What the bars above and below the middle line count.
    std::string above;
    std::string below;
    /// From left to right.
    std::vector<ChartBar> bars;
    /// What a screen reader says of the chart besides its name.
    std::string description;
};

/// Draws two series of numbers as bars above and below a line, with a scale and a legend. It is a
/// picture only: the form also shows the numbers as text.
class BarChart : public Control {
 public:
    virtual void setContent(ChartContent content) = 0;
};

/// The keys that a drawing area reports: the arrows, "+" and "-", Home.
enum class DrawingKey { Left, Right, Up, Down, Plus, Minus, Home };

/// An area that the form draws, and in which the user points. It takes the focus when clicked or
/// reached by Tab. Positions are in the units of `Canvas`, from the upper left corner.
class DrawingArea : public Control {
 public:
    /// Draws the area; called whenever it must be painted. It covers the whole area.
    std::function<void(Canvas&)> onPaint;
    /// Paints the area again soon. Several calls cause one painting.
    virtual void redraw() = 0;
    /// Does the same for a frame of a movement, while the user drags or zooms. If painting is
    /// slower than the screen, what was painted last appears `scale` times as large, with its upper
    /// left corner at `corner`, and `onPaint` is called only when the movement rests.
    virtual void redrawMoved(double scale, CanvasPoint corner) = 0;
    virtual CanvasSize size() const = 0;
    /// Returns how wide a text is in the font of `Canvas::text`, in bold.
    virtual double widthOf(std::string_view text, double fontSize) const = 0;
    /// The colours of text and of the background that the user has chosen for windows.
    virtual Color textColor() const = 0;
    virtual Color backgroundColor() const = 0;
    /// Sets what a screen reader says of the picture besides its name.
    virtual void setDescription(const std::string& description) = 0;
    /// Shows a text beside the pointer; an empty one hides it.
    virtual void showTip(const std::string& text) = 0;
    /// Shows the pointer of things that can be clicked, or the arrow.
    virtual void setHandPointer(bool hand) = 0;

    /// Calls `frame` for that many seconds as often as the screen can show it, with the share of
    /// the time that has passed, above 0, and once with 1 at the end. When the system asks for less
    /// motion, calls it at once, and only with 1. Replaces an animation that has not ended, without
    /// further calls of its function.
    virtual void animate(double seconds, std::function<void(double share)> frame) = 0;

    /// Called when the user presses the left button over the area, moves the pointer there, with or
    /// without the button pressed, releases the button, and moves the pointer away. While the
    /// button is pressed, movements outside the area are reported too.
    std::function<void(CanvasPoint)> onPress;
    std::function<void(CanvasPoint)> onMove;
    std::function<void(CanvasPoint)> onRelease;
    std::function<void()> onLeave;
    /// Called for the second press of a double click, after the `onPress` and `onRelease` of the
    /// first one.
    std::function<void(CanvasPoint)> onDoubleClick;
    /// Called when the user turns the wheel, with the number of notches; positive is away from the
    /// user. Touch pads report parts of one.
    std::function<void(CanvasPoint, double notches)> onWheel;
    std::function<void(DrawingKey)> onKey;
    /// Called when the area has a new size or when its colours have changed.
    std::function<void()> onResize;
};

/// A tree control that shows its model. A node with children can be expanded.
class TreeView : public Control {
 public:
    explicit TreeView(const Language& language) : model_(language) {}

    TreeModel& model() { return model_; }

    /// Selects the node, expands its ancestors and scrolls it into view. Null clears the selection.
    /// Calls no handler.
    virtual void select(TreeNode* node) = 0;
    /// Returns the selected node, or null. Only the user and `select` select nodes. With several
    /// selected, it is the one that the user selected last.
    virtual TreeNode* selected() = 0;
    /// Lets the user select several nodes with Ctrl and Shift, as in a list. Called once at most,
    /// before the window is shown.
    virtual void allowMultipleSelection() = 0;
    /// Returns all selected nodes in the order of their rows. They include `selected()`. When that
    /// node is removed, or one above it collapsed, the others are no longer selected.
    virtual std::vector<TreeNode*> selectedNodes() = 0;
    /// Expands or collapses a node without calling a handler. While redraw is suspended, the native
    /// tree may do so when redraw resumes.
    virtual void setExpanded(TreeNode& node, bool expanded) = 0;
    /// Returns the node of the uppermost row in view, or null if the tree is empty; `scrollToTop`
    /// moves a node's row there, as far as the tree can be scrolled. Requires: the node's ancestors
    /// are expanded.
    virtual TreeNode* firstVisible() = 0;
    virtual void scrollToTop(TreeNode& node) = 0;
    /// Repaints everything.
    virtual void repaint() = 0;

    /// Called when the user expands or collapses a node. The handler may replace the node's
    /// children.
    std::function<void(TreeNode&)> onExpand;
    std::function<void(TreeNode&)> onCollapse;
    /// Called when the user selects a node with the mouse or the keyboard. Pressing the right
    /// button selects the node under the pointer.
    std::function<void(TreeNode&)> onSelect;
    /// Called when the user releases the right button over the tree or presses the menu key or F10
    /// while a node is selected. The handler opens a `PopupMenu` at the point given.
    std::function<void(ScreenPoint)> onMenuRequest;
    /// Called when the user presses the Delete key in the tree.
    std::function<void()> onDeleteKey;
    /// Called when the user double-clicks a node, or presses Enter while it is selected. A double
    /// click also expands or collapses a node that has children, before this is called. Without a
    /// handler, Enter belongs to the window.
    std::function<void(TreeNode&)> onActivate;

    /// Returns the detail of a node: a second, lighter text to the right of the node's own, cut at
    /// the right edge of the tree. The tree asks while it paints, and only for the rows in view, so
    /// that a large tree costs no more. The function must not change the model; `repaint` shows
    /// what it returns from then on.
    std::function<std::string(const TreeNode&)> detailOf;
    /// Returns the node's detail; empty without a function, and when that throws, because painting
    /// cannot report it.
    std::string detail(const TreeNode& node) const;

 private:
    TreeModel model_;
};

class MenuItem {
 public:
    virtual ~MenuItem() = default;
    virtual void setVisible(bool visible) = 0;
    virtual void setCaption(const std::string& caption) = 0;
    virtual void setEnabled(bool enabled) = 0;
    /// Shows a check mark beside the caption. Only code changes it.
    virtual void setChecked(bool checked) = 0;

    std::function<void()> onClick;
};

class PopupMenu {
 public:
    virtual ~PopupMenu() = default;
    /// Adds an item at the end. It lives as long as the menu. Its access key is a letter of the
    /// caption that no other item has.
    virtual MenuItem& addItem(const std::string& caption) = 0;
    /// Adds a line at the end. It is shown only between two visible items.
    virtual void addSeparator() = 0;
    /// Opens the menu at the point that `TreeView::onMenuRequest` gave. The handler of the chosen
    /// item runs after the menu has closed, before or after this function returns.
    virtual void open(ScreenPoint where) = 0;
    /// Opens the menu below a control of the same toolkit, such as the button that was clicked.
    virtual void openBelow(Control& control) = 0;
};

/// A top-level window and its controls, which live as long as the window. It is created hidden. Its
/// client area is the inner area and a strip above and below it, which are empty at first.
class Window {
 public:
    virtual ~Window() = default;

    virtual void setCaption(const std::string& caption) = 0;
    /// Sets the inner area's current size, or its smallest.
    virtual void setInnerSize(Size size) = 0;
    virtual void setMinimumInnerSize(Size size) = 0;
    virtual Size innerSize() const = 0;
    /// Sets the heights of the strips. The inner area keeps its size and its controls: the window
    /// grows or shrinks. Controls in the upper strip have negative tops, those in the lower one
    /// tops from the inner area's height on.
    virtual void setStrips(int above, int below) = 0;

    /// Shows the window without making it modal and brings it to the front. It belongs to the
    /// window of the program that was active: it stays in front of that one.
    virtual void show() = 0;
    /// Shows the window, blocks input to all others, and returns when it is hidden.
    virtual void showModal() = 0;
    virtual void hide() = 0;
    virtual bool isVisible() const = 0;
    /// Returns the window's place on the screen as a text for `setPlace`.
    virtual std::string place() const = 0;
    /// Sets where the hidden window appears when it is shown next; any other text is ignored. It
    /// always appears within the screen and no larger. Without a place it appears over the window
    /// that is active then.
    virtual void setPlace(const std::string& place) = 0;

    /// Shows the hourglass pointer over this window, or the normal one. Calls do not nest.
    virtual void setBusyPointer(bool busy) = 0;

    /// Sets what a shortcut does while the window takes input, whichever of its controls has the
    /// focus. Without an act, Esc asks to close the window as its close button does, and the other
    /// keys go to the focused control. In a text box, undo and redo concern its text.
    virtual void setShortcut(Shortcut shortcut, std::function<void()> act) = 0;
    /// Enter presses the button, unless it is disabled or the focused control uses the key itself,
    /// as another button does. The button belongs to this window.
    virtual void setDefaultButton(Button& button) = 0;

    /// In the text of a button, "&" makes the next letter its access key; "&&" is a literal "&".
    /// A button without one gets a free letter when the window is shown.
    virtual Label& addLabel(const Rect& bounds, const std::string& text) = 0;
    virtual Picture& addPicture(const Rect& bounds, TreeImage image) = 0;
    virtual Button& addButton(const Rect& bounds, const std::string& text) = 0;
    virtual OptionButton& addOptionButton(const Rect& bounds, const std::string& text) = 0;
    virtual TextBox& addTextBox(const Rect& bounds) = 0;
    virtual Slider& addSlider(const Rect& bounds) = 0;
    virtual ProgressBar& addProgressBar(const Rect& bounds) = 0;
    virtual ListView& addListView(const Rect& bounds) = 0;
    virtual TreeView& addTreeView(const Rect& bounds) = 0;
    virtual BarChart& addBarChart(const Rect& bounds) = 0;
    virtual DrawingArea& addDrawingArea(const Rect& bounds) = 0;
    virtual PopupMenu& addPopupMenu() = 0;

    /// Called when the inner area has a new size, from the user or when it is first shown.
    std::function<void()> onResize;
    /// Called when the user wants to close the window; false keeps it open. Without a handler the
    /// window is hidden.
    std::function<bool()> onCloseRequest;
    /// Called when the window has been hidden, by the user or by code.
    std::function<void()> onHide;
};

/// Creates windows.
class Toolkit {
 public:
    virtual ~Toolkit() = default;
    virtual std::unique_ptr<Window> createWindow() = 0;
};

}  // namespace pelk
