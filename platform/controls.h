#pragma once
// The windows and controls that forms are made of: what a form needs and no more.
//
// Positions and sizes are in twips of the window's inner area, from its top left corner. A toolkit
// sizes a twip so that a row of 250 of them holds a button in the user's font; on a plain screen
// that is close to the nominal 1440 to the inch.
//
// Handlers report acts of the user only: no setter calls one. A handler may hide or change the
// window it came from. Whatever a handler throws is shown to the user and goes no further.

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

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

/// A place on the screen in the toolkit's own units, from which nothing is computed.
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
    /// Shows the arrow over this control, also while its window is busy.
    virtual void keepArrowPointer() = 0;
};

/// Text that the user cannot edit; long text wraps within the bounds.
class Label : public Control {
 public:
    virtual void setText(const std::string& text) = 0;
    /// Paints the label before this returns, without handling other events.
    virtual void repaint() = 0;
};

/// An image of the tree, beside a text that speaks of it.
class Picture : public Control {};

class Button : public Control {
 public:
    std::function<void()> onClick;
};

/// A choice, checked by a dot. Of a window's option buttons one at most is checked: checking one,
/// by the user or by code, clears the others.
class OptionButton : public Control {
 public:
    virtual void setChecked(bool checked) = 0;

    /// The user checked it, or clicked it while it was checked.
    std::function<void()> onClick;
};

/// One line of text that the user edits.
class TextBox : public Control {
 public:
    virtual void setText(const std::string& text) = 0;
    virtual std::string text() const = 0;

    /// The user edited the text.
    std::function<void()> onChange;
};

/// Chooses a whole number by dragging or with the arrow keys, which move it by one.
class Slider : public Control {
 public:
    virtual void setRange(int minimum, int maximum) = 0;
    /// The value stays within the range.
    virtual void setValue(int value) = 0;
    virtual int value() const = 0;

    /// The user moved it; called at each step of the way.
    std::function<void()> onChange;
};

class ProgressBar : public Control {
 public:
    /// At its maximum the bar is full, in a range of a single value as well.
    virtual void setRange(int minimum, int maximum) = 0;
    /// The value stays within the range.
    virtual void setValue(int value) = 0;
};

struct ListRow {
    std::string text;
    /// What the form attaches to the row.
    std::string tag;
};

/// A list of one column from which the user selects any number of rows. The rows are held once,
/// here; the native list shows them.
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

    /// Gives the column the width of that text. The header itself is not shown; a longer row can
    /// be scrolled to.
    virtual void setColumnHeader(const std::string& text) = 0;

 protected:
    /// The rows have just changed: the last one is new, or `row` is gone.
    virtual void rowAdded() = 0;
    virtual void rowRemoved(std::size_t row) = 0;

 private:
    std::vector<ListRow> rows_;
};

/// A tree control that shows its model. A node with children can be expanded.
class TreeView : public Control {
 public:
    explicit TreeView(const Language& language) : model_(language) {}

    TreeModel& model() { return model_; }

    /// Selects the node and brings it into view, expanding what it stands under; null selects
    /// nothing. No handler is called.
    virtual void select(TreeNode* node) = 0;
    /// The selected node; null when none is. Nothing is selected unless the user or `select`
    /// selected it.
    virtual TreeNode* selected() = 0;
    /// Opens or closes a node as it stands; no handler is called. While redraw is suspended the
    /// native tree may take it in when it resumes.
    virtual void setExpanded(TreeNode& node, bool expanded) = 0;
    /// Paints everything anew.
    virtual void repaint() = 0;

    /// The user opened or closed a node. The handler may replace the node's children.
    std::function<void(TreeNode&)> onExpand;
    std::function<void(TreeNode&)> onCollapse;
    /// The user selected a node, by mouse or by key; also by the right button, which selects the
    /// node under the pointer when it is pressed.
    std::function<void(TreeNode&)> onSelect;
    /// The user asks for a menu, at that point: released the right button over the tree, or
    /// pressed the menu key while a node is selected. The handler opens a `PopupMenu` there.
    std::function<void(ScreenPoint)> onMenuRequest;
    /// The user pressed the Delete key in the tree.
    std::function<void()> onDeleteKey;

 private:
    TreeModel model_;
};

class MenuItem {
 public:
    virtual ~MenuItem() = default;
    virtual void setVisible(bool visible) = 0;

    std::function<void()> onClick;
};

class PopupMenu {
 public:
    virtual ~PopupMenu() = default;
    /// Adds an item behind the last one; it lives as long as the menu does.
    virtual MenuItem& addItem(const std::string& caption) = 0;
    /// Opens the menu at that point, which `TreeView::onMenuRequest` named. The handler of the item
    /// that the user chooses is called when the menu is closed, before or after this returns.
    virtual void open(ScreenPoint where) = 0;
};

/// A top-level window with its controls, which live as long as the window does. It is created
/// hidden.
class Window {
 public:
    virtual ~Window() = default;

    virtual void setCaption(const std::string& caption) = 0;
    /// The size of the inner area, now and at the least.
    virtual void setInnerSize(Size size) = 0;
    virtual void setMinimumInnerSize(Size size) = 0;
    virtual Size innerSize() const = 0;

    /// Shows the window beside the others and brings it to the front.
    virtual void show() = 0;
    /// Shows the window, keeps the user from all others, and returns when it is hidden.
    virtual void showModal() = 0;
    virtual void hide() = 0;
    virtual bool isVisible() const = 0;

    /// Shows the hourglass pointer over this window, or the normal one again. Not counted.
    virtual void setBusyPointer(bool busy) = 0;

    /// In the text of a button, "&" marks the next letter as its key; "&&" is one "&".
    virtual Label& addLabel(const Rect& bounds, const std::string& text) = 0;
    virtual Picture& addPicture(const Rect& bounds, TreeImage image) = 0;
    virtual Button& addButton(const Rect& bounds, const std::string& text) = 0;
    virtual OptionButton& addOptionButton(const Rect& bounds, const std::string& text) = 0;
    virtual TextBox& addTextBox(const Rect& bounds) = 0;
    virtual Slider& addSlider(const Rect& bounds) = 0;
    virtual ProgressBar& addProgressBar(const Rect& bounds) = 0;
    virtual ListView& addListView(const Rect& bounds) = 0;
    virtual TreeView& addTreeView(const Rect& bounds) = 0;
    virtual PopupMenu& addPopupMenu() = 0;

    /// The inner area got another size, by the user or when it is first shown.
    std::function<void()> onResize;
    /// The user wants to close the window; false keeps it open. Without a handler it is hidden.
    std::function<bool()> onCloseRequest;
};

/// The toolkit: makes windows.
class Toolkit {
 public:
    virtual ~Toolkit() = default;
    virtual std::unique_ptr<Window> createWindow() = 0;
};

}  // namespace pelk
