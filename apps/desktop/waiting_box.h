#pragma once
// Waits without freezing the windows.

#include <QString>
#include <functional>

namespace pelk {

/// Handles events until `isDone` returns true. After a moment, opens a modal box with the text and
/// a Cancel button. Returns false when the user cancels. Only the thread of the windows may call
/// it.
bool waitWithBox(const QString& text, const std::function<bool()>& isDone);

}  // namespace pelk
