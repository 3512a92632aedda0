#pragma once
// Bulk changes of a tree: while redraw is suspended the native tree hears of nothing that is
// added, and it is cleared in one step. So thousands of contacts fill without a wait.

#include "platform/controls.h"

namespace pelk {

/// Suspends the redraw of a tree for as long as it lives.
class RedrawSuspension {
 public:
    explicit RedrawSuspension(TreeView& tree) : tree_(tree) { tree_.model().suspendRedraw(); }
    RedrawSuspension(const RedrawSuspension&) = delete;
    RedrawSuspension& operator=(const RedrawSuspension&) = delete;
    ~RedrawSuspension() { tree_.model().resumeRedraw(); }

 private:
    TreeView& tree_;
};

inline void fastClear(TreeView& tree) {
    tree.model().clear();
}

}  // namespace pelk
