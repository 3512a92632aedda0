#include "views/search_field.h"

namespace pelk {

SearchField::SearchField(Window& window, Control& shows, const std::string& hint)
    : box(window.addTextBox({})), status(window.addLabel({}, "")), shows_(shows) {
    box.setPlaceholder(hint);
    box.onChange = [this] { textChanged(); };
    box.onEnter = [this] { step(1); };
    box.onStep = [this](int by) { step(by); };
    box.onFocus = [this] { target_->prepare(); };
}

void SearchField::place(FormLayout& layout, int left, int top, int width) {
    constexpr int kHeight = 250;
    constexpr int kStatusWidth = 1500;
    const int statusLeft = left + width - kStatusWidth;
    layout.add(box, {left, top, statusLeft - kFormMargin - left, kHeight}, kAnchorTop);
    layout.add(status, {statusLeft, top, kStatusWidth, kHeight}, {.left = 1});
}

void SearchField::setTarget(SearchTarget& target) {
    target_ = &target;
    clear();
}

void SearchField::clear() {
    box.setText("");
    search();
}

void SearchField::textChanged() {
    search();
    if (hits_ > 0)
        showHit(0);
}

/// Only a box with a text takes Esc; otherwise the key acts on the window.
void SearchField::search() {
    const std::string query = box.text();
    const bool hasWords = query.find_first_not_of(' ') != std::string::npos;
    if (!hasWords)
        target_->noQuery();
    hits_ = hasWords ? target_->find(query) : 0;
    shown_ = 0;
    status.setText(!hasWords ? idle_ : hits_ == 0 ? kNothingFound : "");
    box.onEscape = nullptr;
    if (!query.empty())
        box.onEscape = [this] {
            clear();
            shows_.focus();
        };
    if (onShown)
        onShown(false);
}

void SearchField::searchAgain() {
    search();
    if (hits_ > 0)
        status.setText(std::to_string(hits_) + " found");
}

void SearchField::showHit(std::size_t hit) {
    shown_ = hit;
    target_->show(hit);
    status.setText(std::to_string(hit + 1) + " of " + std::to_string(hits_));
    if (onShown)
        onShown(true);
}

/// Searches again, because the database may have changed since.
void SearchField::step(int step) {
    const std::size_t last = shown_;
    search();
    if (hits_ > 0)
        showHit((last + hits_ + static_cast<std::size_t>(step)) % hits_);
}

}  // namespace pelk
