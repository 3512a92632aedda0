#include "db/journal.h"

#include <utility>

namespace pelk {
namespace {

void toggleEdit(Edit& edit, Content& content) {
    std::visit([&content](auto& each) { each.toggle(content); }, edit);
}

/// Detaches the element.
ElementEdit removalOf(const Content& content, const XmlElement& element) {
    ElementEdit edit(content, element);
    edit.detach();
    return edit;
}

}  // namespace

void Journal::setAttribute(const XmlElement& element, const char* name, const std::string& value) {
    if (!open_) {
        forget();
        element.setAttribute(name, value);
        return;
    }
    std::optional<std::string> before = element.attribute(name);
    if (before == value)
        return;
    open_->edits.emplace_back(AttributeEdit{element, name, std::move(before)});
    try {
        element.setAttribute(name, value);
    } catch (...) {
        open_->edits.pop_back();
        throw;
    }
}

void Journal::noteAdded(const Content& content, const XmlElement& element) {
    if (!open_) {
        forget();
        return;
    }
    try {
        open_->edits.emplace_back(ElementEdit(content, element));
    } catch (...) {
        element.remove();
        throw;
    }
}

void Journal::remove(const Content& content, const XmlElement& element) {
    if (!open_) {
        forget();
        element.remove();
        return;
    }
    open_->edits.emplace_back(removalOf(content, element));
}

void Journal::replace(Content& content, Content&& other) {
    if (open_) {
        open_->edits.emplace_back(ContentEdit{std::make_unique<Content>(std::move(other))});
        toggleEdit(open_->edits.back(), content);
    } else {
        forget();
        content = std::move(other);
    }
}

void Journal::changeOutside(const std::function<void()>& swap) {
    if (open_)
        open_->edits.emplace_back(OutsideEdit{swap});
    else
        forget();
    swap();
}

void Journal::inStep(const std::string& name, Content& content,
                     const std::function<void()>& edits) {
    if (open_) {
        edits();
        return;
    }
    // Ending the step must not fail.
    done_.reserve(kSteps + 1);
    open_.emplace(Step{name, {}});
    try {
        edits();
    } catch (...) {
        // Stays undoable if it cannot be reverted now.
        done_.push_back(std::move(*open_));
        open_.reset();
        content.indexesAreStale = true;
        toggle(done_.back(), content);
        done_.pop_back();
        throw;
    }
    end();
}

void Journal::end() noexcept {
    if (!open_->edits.empty()) {
        undone_.clear();
        done_.push_back(std::move(*open_));
        if (done_.size() > kSteps)
            done_.erase(done_.begin());
    }
    open_.reset();
}

bool Journal::moveStep(std::vector<Step>& from, std::vector<Step>& to, Content& content) {
    if (from.empty())
        return false;
    to.reserve(kSteps + 1);
    toggle(from.back(), content);
    to.push_back(std::move(from.back()));
    from.pop_back();
    return true;
}

/// Reverts the edits from the last to the first, or repeats them from the first to the last.
void Journal::toggle(Step& step, Content& content) {
    const std::size_t count = step.edits.size();
    const auto edit = [&](std::size_t turn) -> Edit& {
        return step.edits[step.isDone ? count - 1 - turn : turn];
    };
    std::size_t turn = 0;
    try {
        for (; turn < count; ++turn)
            toggleEdit(edit(turn), content);
        content.reindexIfStale();
    } catch (...) {
        while (turn > 0)
            toggleEdit(edit(--turn), content);
        throw;
    }
    step.isDone = !step.isDone;
}

void Journal::forget() {
    done_.clear();
    undone_.clear();
}

}  // namespace pelk
