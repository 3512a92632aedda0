#pragma once
// The template of a dialog whose controls are created later.

#include <windows.h>

namespace pelk {

/// No controls, font or title.
struct EmptyTemplate {
    explicit EmptyTemplate(DWORD style) { header.style = style; }

    DLGTEMPLATE header = {};
    WORD menuClassAndTitle[3] = {};
};

}  // namespace pelk
