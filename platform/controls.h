#pragma once
// The windows and controls that forms are made of: what a form needs and no more.
//
// Positions and sizes are in twips of the window's inner area, from its top left corner. A toolkit
// sizes a twip so that a row of 250 of them holds a button in the user's font; on a plain screen
// that is close to the nominal 1440 to the inch.
//
// Handlers report acts of the user only: no setter calls one. A handler may hide or change the
// window it came from. Whatever a handler throws is shown to the user and goes no further.

#include <functional>
#include <memory>
#include <string>

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

class Control {
 public:
    virtual ~Control() = default;
    virtual Rect bounds() const = 0;
    virtual void setBounds(const Rect& bounds) = 0;
    virtual void setEnabled(bool enabled) = 0;
};

/// Text that the user cannot edit; long text wraps within the bounds.
class Label : public Control {
 public:
    virtual void setText(const std::string& text) = 0;
    /// Paints the label before this returns, without handling other events.
    virtual void repaint() = 0;
};

class Button : public Control {
 public:
    std::function<void()> onClick;
};

class ProgressBar : public Control {
 public:
    virtual void setRange(int minimum, int maximum) = 0;
    /// The value stays within the range.
    virtual void setValue(int value) = 0;
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
    /// Paints everything anew.
    virtual void repaint() = 0;

    /// The user opened or closed a node. The handler may replace the node's children.
    std::function<void(TreeNode&)> onExpand;
    std::function<void(TreeNode&)> onCollapse;

 private:
    TreeModel model_;
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

    virtual Label& addLabel(const Rect& bounds, const std::string& text) = 0;
    virtual Button& addButton(const Rect& bounds, const std::string& text) = 0;
    virtual ProgressBar& addProgressBar(const Rect& bounds) = 0;
    virtual TreeView& addTreeView(const Rect& bounds) = 0;

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
