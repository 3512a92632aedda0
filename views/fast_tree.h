#pragma once
// Bulk changes of a tree. While redraw is suspended, the native tree gets no notice of added nodes,
// and clearing is one step; so thousands of contacts appear without a noticeable delay.

#include "platform/controls.h"

namespace pelk {

/// Suspends the redraw of a tree during its own lifetime. Does not nest.
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
