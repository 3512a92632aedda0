#pragma once
// Includes GMime and sets it up. For source files only: nothing outside this folder sees GMime.

#include <gmime/gmime.h>

#include <memory>

namespace pelk {

/// To be called before any other function of GMime. Cheap after the first time.
inline void readyGMime() {
    [[maybe_unused]] static const bool ready = (g_mime_init(), true);
}

struct GFree {
    void operator()(void* memory) const { g_free(memory); }
};

/// Text that GLib or GMime handed over.
using GText = std::unique_ptr<char, GFree>;

}  // namespace pelk
