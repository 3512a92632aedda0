#include "views/undo_items.h"

#include <cstddef>

namespace pelk {
namespace {

/// In bytes.
constexpr std::size_t kLongestStep = 60;

void name(MenuItem& item, const char* act, const std::string& step) {
    item.setVisible(!step.empty());
    item.setCaption(stepCaption(act, step));
}

}  // namespace

std::string stepCaption(const std::string& act, const std::string& step) {
    if (step.size() <= kLongestStep)
        return act + " " + step;
    std::size_t end = kLongestStep;
    // Cut before a character, not inside one.
    while (end > 0 && (static_cast<unsigned char>(step[end]) & 0xC0U) == 0x80U)
        --end;
    return act + " " + step.substr(0, end) + "...";
}

std::string lastStepText(const Database& database) {
    // Every new step forgets those that were undone.
    if (const std::string undone = database.redoName(); !undone.empty())
        return stepCaption("Undone:", undone) + ". Ctrl+Y does it again.";
    if (const std::string done = database.undoName(); !done.empty())
        return stepCaption("Done:", done) + ". Ctrl+Z undoes it.";
    return {};
}

UndoItems::UndoItems(PopupMenu& menu)
    : undoItem_(menu.addItem("Undo")), redoItem_(menu.addItem("Redo")) {
    undoItem_.onClick = [this] { undo(); };
    redoItem_.onClick = [this] { redo(); };
}

void UndoItems::update(const Database& database) {
    name(undoItem_, "Undo", database.undoName());
    name(redoItem_, "Redo", database.redoName());
}

}  // namespace pelk
