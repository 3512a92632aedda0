#include "platform/controls.h"

namespace pelk {

std::string TreeView::detail(const TreeNode& node) const {
    try {
        return detailOf ? detailOf(node) : std::string();
    } catch (...) {
        return {};
    }
}

}  // namespace pelk
