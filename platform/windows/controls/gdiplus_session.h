#pragma once
// GDI+, the part of Windows that draws with smooth edges.

#include <windows.h>
// Requires the include above.
#include <objidl.h>
// Requires the includes above.
#include <gdiplus.h>

#include <memory>

namespace pelk {

/// GDI+ works while an object of this class exists. Must not be created or destroyed while Windows
/// loads or unloads the DLL.
class GdiplusSession {
 public:
    /// Throws `Error` when GDI+ does not start.
    GdiplusSession();
    GdiplusSession(const GdiplusSession&) = delete;
    GdiplusSession& operator=(const GdiplusSession&) = delete;
    ~GdiplusSession();

    /// Returns the session that all users share while there is one.
    static std::shared_ptr<GdiplusSession> shared();

 private:
    ULONG_PTR token_ = 0;
};

}  // namespace pelk
