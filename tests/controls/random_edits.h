#pragma once
// Edits of a tree that its native view must follow.

#include <random>

#include "tests/support/driver.h"

namespace pelk {

/// Edits the model, selects and expands at random; every now and then handles what waits and calls
/// `check`.
inline void editAtRandom(TreeView& tree, Driver& driver, const std::function<void()>& check) {
    TreeModel& model = tree.model();
    std::mt19937 random(7);
    const auto below = [&random](std::size_t count) { return random() % count; };
    for (int step = 0; step < 1500 && !testing::Test::HasFatalFailure(); ++step) {
        TreeNode* node = &model.root();
        while (!node->children().empty() && below(4) != 0)
            node = node->children()[below(node->children().size())];
        const auto act = below(13);
        if (act < 5)
            model.add(*node, std::to_string(below(1000)));
        else if (act == 5)
            tree.select(node);
        else if (act == 6 && node->parent() != nullptr)
            model.remove(*node);
        else if (act == 7)
            model.sortChildren(*node);
        else if (act == 8)
            model.suspendRedraw();
        else if (act == 9)
            model.resumeRedraw();
        else if (act == 10 && below(20) == 0)
            below(2) == 0 ? model.clear() : model.removeChildren(*node);
        else if (act == 12)
            tree.setExpanded(*node, below(3) != 0);
        else if (node->parent() != nullptr)
            model.setText(*node, "x");
        if (step % 50 == 0) {
            driver.settle();
            check();
        }
    }
}

}  // namespace pelk
