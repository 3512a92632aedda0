#pragma once
// A text box that searches while the user types, and a label that says how much was found.

#include <cstddef>
#include <functional>
#include <string>

#include "platform/controls.h"
#include "views/form_layout.h"

namespace pelk {

/// What a search field searches.
class SearchTarget {
 public:
    virtual ~SearchTarget() = default;
    /// Searches for the words of a query, at least one, and returns the number of hits.
    virtual std::size_t find(const std::string& query) = 0;
    /// Shows a hit of the last search, counted from 0.
    virtual void show(std::size_t hit) = 0;
    /// Called when the query has become empty, perhaps again.
    virtual void noQuery() {}
    /// Reads what is searched, so that the first search is as quick as the others. Called when the
    /// field gets the focus, perhaps before the form has a database.
    virtual void prepare() {}
};

/// The first hit is shown while the user types. Enter and Down show the next one, Up shows the one
/// before; after the last hit comes the first. Esc empties the box and moves the focus to the
/// control that shows the hits.
class SearchField {
 public:
    /// Adds the controls to the window, which outlives this object as `shows` does. The hint stands
    /// in the empty box.
    SearchField(Window& window, Control& shows, const std::string& hint);
    SearchField(const SearchField&) = delete;
    SearchField& operator=(const SearchField&) = delete;

    /// Places the controls in a row 250 twips high, which stretches with the window.
    void place(FormLayout& layout, int left, int top, int width);
    /// Searches this from now on, and empties the box. The target outlives this object.
    void setTarget(SearchTarget& target);
    /// Replaces what Enter does.
    void setEnter(std::function<void()> act) { box.onEnter = std::move(act); }
    /// Searches again, after what is searched has changed. Shows no hit.
    void searchAgain();
    /// Empties the box.
    void clear();
    /// Shows a text in place of the number of hits, until the next search.
    void say(const std::string& text) { status.setText(text); }
    /// Shows this text while the box is empty.
    void setIdleText(const std::string& text) { idle_ = text; }
    void focus() { box.focus(); }

    /// Called after each search with false, and after each hit shown with true.
    std::function<void(bool shown)> onShown;

    TextBox& box;
    Label& status;

 private:
    void search();
    void textChanged();
    void showHit(std::size_t hit);
    void step(int step);

    Control& shows_;
    SearchTarget* target_ = nullptr;
    std::string idle_;
    std::size_t hits_ = 0;
    std::size_t shown_ = 0;
};

inline constexpr const char* kNothingFound = "nothing found";

}  // namespace pelk
