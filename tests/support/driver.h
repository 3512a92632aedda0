#pragma once
// Acts on windows like a user and reads what they show, through the toolkit's native widgets and
// never through the interface under test. Each toolkit has an implementation.
//
// A mistake in the test (no such row, a hidden window) fails the test. An act that opens a modal
// window returns when that window is closed; pass acts for the meantime to `later` first.

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/tree_model.h"

namespace pelk {

/// The row numbers from the top level down to a row; empty for the root.
using TreePath = std::vector<int>;

struct TreeRow {
    std::string text;
    std::optional<Color> color;
    TreeImage image = TreeImage::None;
    bool hasExpander = false;
    bool expanded = false;
};

struct Progress {
    int minimum = 0;
    int maximum = 0;
    int value = 0;

    friend bool operator==(const Progress&, const Progress&) = default;
};

enum class Key { Enter, Escape, Tab, Up, Down, Left, Right, Plus, Minus, Asterisk, Delete, Home };

enum class Hold { Control, Shift };

enum class Pointer { Arrow, Busy, Hand };

/// What the user does with the pointer and the left button over a drawing area.
enum class PointerAct { Move, Press, Release, DoubleClick, Leave };

class Driver {
 public:
    virtual ~Driver() = default;

    /// Handles all pending events.
    virtual void settle() = 0;
    /// Runs `act` when events are next handled, for example in a modal window.
    virtual void later(std::function<void()> act) = 0;

    /// What the user sees of windows that the test does not hold: whether a window with the caption
    /// is shown, whether the active one has a label with the text. `clickButton` clicks a
    /// button with the text.
    virtual bool isWindowShown(const std::string& caption) = 0;
    virtual bool isLabelShown(const std::string& text) = 0;
    virtual void clickButton(const std::string& text) = 0;
    /// Clicks the close button of the modal window.
    virtual void closeModal() = 0;

    virtual bool isVisible(Window& window) = 0;
    virtual std::string captionOf(Window& window) = 0;
    /// Drags the window's edge until the inner area has that size, or its minimum.
    virtual void resize(Window& window, Size inner) = 0;
    /// Clicks the close button of the window.
    virtual void close(Window& window) = 0;
    /// Presses a key while the window is active.
    virtual void press(Window& window, Key key) = 0;
    /// Presses a key with modifiers, such as "Ctrl+Shift+Z", "Alt+R", "F2", "Esc" or "/".
    virtual void press(Window& window, const std::string& keys) = 0;

    /// In twips of the inner area.
    virtual Rect boundsOf(Control& control) = 0;
    virtual bool isEnabled(Control& control) = 0;
    virtual bool hasFocus(Control& control) = 0;
    virtual void giveFocus(Control& control) = 0;
    /// The text of a label, a text box or any kind of button.
    virtual std::string textOf(Control& control) = 0;
    /// Whether the text of a label or button fits into it.
    virtual bool showsWholeText(Control& control) = 0;
    /// Clicks where the button is; whatever covers it gets the click.
    virtual void click(Control& button) = 0;
    virtual Progress progressOf(ProgressBar& bar) = 0;
    /// The pixels that a bar, a chart or a drawing area paints now, row by row.
    virtual std::vector<std::uint32_t> pictureOf(Control& control) = 0;
    /// The image that is shown.
    virtual TreeImage imageOf(Picture& picture) = 0;
    virtual bool isChecked(OptionButton& button) = 0;
    /// Replaces the text by typing, key by key.
    virtual void type(TextBox& box, const std::string& text) = 0;
    virtual std::string selectedTextOf(TextBox& box) = 0;
    virtual int valueOf(Slider& slider) = 0;
    /// Moves the slider to the value with the keyboard.
    virtual void move(Slider& slider, int value) = 0;
    virtual std::vector<std::string> rowsOf(ListView& list) = 0;
    /// Selects exactly these rows by clicking them.
    virtual void selectRows(ListView& list, const std::vector<int>& rows) = 0;
    /// Acts at a point in the units of the area. While the button is pressed, the point may be
    /// outside.
    virtual void point(DrawingArea& area, PointerAct act, CanvasPoint where = {}) = 0;
    void click(DrawingArea& area, CanvasPoint where) {
        point(area, PointerAct::Press, where);
        point(area, PointerAct::Release, where);
    }
    virtual void turnWheel(DrawingArea& area, CanvasPoint where, double notches) = 0;
    /// The text of the tip that is shown beside the pointer; empty for none.
    virtual std::string shownTip() = 0;
    /// The pointer that Windows or Qt shows over the control now.
    virtual Pointer pointerOver(Control& control) = 0;

    /// The rows under `parent`, whether it is expanded or not.
    virtual std::vector<TreeRow> rows(TreeView& tree, const TreePath& parent = {}) = 0;
    /// Scrolls to the row, whose parents are expanded, and clicks its expander.
    void expand(TreeView& tree, const TreePath& row) { clickExpander(tree, row, false); }
    void collapse(TreeView& tree, const TreePath& row) { clickExpander(tree, row, true); }
    /// Scrolls to the row and clicks it.
    virtual void clickRow(TreeView& tree, const TreePath& row) = 0;
    /// Scrolls to the row and clicks it while a key is held.
    virtual void clickRowWith(Hold key, TreeView& tree, const TreePath& row) = 0;
    /// The texts of all selected rows from top to bottom.
    virtual std::vector<std::string> selectedTexts(TreeView& tree) = 0;
    virtual void doubleClickRow(TreeView& tree, const TreePath& row) = 0;
    /// The pixels that the tree paints to the right of the row's text.
    virtual std::vector<std::uint32_t> pictureBeside(TreeView& tree, const TreePath& row) = 0;
    /// Clicks the button and returns the menu that it opens, as it looks: an item with a check mark
    /// as "*Caption", a disabled one as "(Caption)", a line as "-". Closes the menu.
    std::vector<std::string> menuOf(Control& button) { return useMenuOf(button, ""); }
    /// Chooses the item of that menu that looks so. Returns when its handler has run.
    void chooseIn(Control& button, const std::string& item) {
        EXPECT_FALSE(useMenuOf(button, item).empty()) << "No menu";
    }
    /// Presses and releases the right button over the row. Returns the captions of the menu that
    /// opens, if any, with a line as "-", and closes it.
    std::vector<std::string> menuAt(TreeView& tree, const TreePath& row) {
        return useMenuAt(tree, row, "");
    }
    /// Opens the row's menu with the right button and chooses the item with that caption. Returns
    /// when its handler has run.
    void chooseAt(TreeView& tree, const TreePath& row, const std::string& caption) {
        EXPECT_FALSE(useMenuAt(tree, row, caption).empty()) << "No menu";
    }
    /// Whether the row is within the visible part of the tree.
    virtual bool isInView(TreeView& tree, const TreePath& row) = 0;
    virtual std::optional<std::string> selectedText(TreeView& tree) = 0;

 protected:
    /// Clicks the expander of a row, which must be in the state `expanded`.
    virtual void clickExpander(TreeView& tree, const TreePath& row, bool expanded) = 0;
    /// Opens the menu of a row and chooses the item with that caption, or closes the menu when it
    /// is empty. Returns the captions.
    virtual std::vector<std::string> useMenuAt(TreeView& tree, const TreePath& row,
                                               const std::string& caption) = 0;
    /// Does the same with the menu of a button.
    virtual std::vector<std::string> useMenuOf(Control& button, const std::string& item) = 0;
};

}  // namespace pelk
