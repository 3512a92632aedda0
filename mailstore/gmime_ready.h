#pragma once
// Includes GMime and initialises it. Only source files of this folder include this header.

#include <gmime/gmime.h>

#include <memory>

namespace pelk {

/// Initialises GMime on the first call. Call it before any other function of GMime. Any thread may
/// call it.
inline void readyGMime() {
    [[maybe_unused]] static const bool ready = (g_mime_init(), true);
}

struct GFree {
    void operator()(void* memory) const { g_free(memory); }
};

/// Owns text that GLib or GMime allocated.
using GText = std::unique_ptr<char, GFree>;

}  // namespace pelk
