#pragma once
// The keys that mean the same in every window, whichever control has the focus.

#include <string_view>

namespace pelk {

enum class Shortcut { Escape, Rename, Refresh, Find, Undo, Redo, Back };

struct ShortcutKey {
    Shortcut shortcut;
    /// Written as Qt and the help write it: "Ctrl+", "Shift+" and "Alt+", then a letter, "Esc",
    /// "Left" or a function key.
    std::string_view keys;
};

inline constexpr ShortcutKey kShortcutKeys[] = {
    {Shortcut::Escape, "Esc"},        {Shortcut::Rename, "F2"},     {Shortcut::Refresh, "F5"},
    {Shortcut::Find, "Ctrl+F"},       {Shortcut::Undo, "Ctrl+Z"},   {Shortcut::Redo, "Ctrl+Y"},
    {Shortcut::Redo, "Ctrl+Shift+Z"}, {Shortcut::Back, "Alt+Left"},
};

/// Typed outside a text box, this character acts as `Shortcut::Find`.
inline constexpr char kFindCharacter = '/';

}  // namespace pelk
