#include "platform/desktop/qt/shortcut_acts.h"

#include <QShortcut>
#include <utility>

#include "platform/guard.h"

namespace pelk {

void ShortcutActs::set(Shortcut shortcut, std::function<void()> act) {
    if (!acts_.contains(shortcut))
        listen(shortcut);
    acts_[shortcut] = std::move(act);
}

/// Qt offers the keys to the focused control first: a text box takes those of undo and redo.
void ShortcutActs::listen(Shortcut shortcut) {
    for (const auto& [wanted, keys] : kShortcutKeys) {
        if (wanted != shortcut)
            continue;
        const QString text = QString::fromLatin1(keys.data(), static_cast<qsizetype>(keys.size()));
        auto* const key = new QShortcut(QKeySequence(text), &window_);
        QObject::connect(key, &QShortcut::activated, [this, shortcut] {
            const auto act = acts_.at(shortcut);
            guarded(dialogs_, act);
        });
    }
}

}  // namespace pelk
