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

void ShortcutActs::listen(Shortcut shortcut) {
    for (const auto& [wanted, keys] : kShortcutKeys)
        if (wanted == shortcut)
            listen(shortcut, QString::fromLatin1(keys.data(), static_cast<qsizetype>(keys.size())));
    if (shortcut == Shortcut::Find)
        listen(shortcut, QString(QLatin1Char(kFindCharacter)));
}

/// Qt offers the keys to the focused control first: a text box takes characters and the keys of
/// undo and redo.
void ShortcutActs::listen(Shortcut shortcut, const QString& keys) {
    auto* const key = new QShortcut(QKeySequence(keys), &window_);
    QObject::connect(key, &QShortcut::activated, [this, shortcut] {
        const auto act = acts_.at(shortcut);
        guarded(dialogs_, act);
    });
}

}  // namespace pelk
