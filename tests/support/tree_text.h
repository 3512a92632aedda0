#pragma once
// The content of a tree as one line of text.

#include "tests/support/driver.h"

namespace pelk {

/// Returns the texts of the rows below `parent`, each followed by the strength that both its image
/// and its colour show: "Ann strong, Bob".
inline std::string shownRows(Driver& driver, TreeView& tree, const TreePath& parent = {}) {
    struct Look {
        const char* name;
        TreeImage image;
        Color color;
    };
    constexpr Look kLooks[] = {{" strong", TreeImage::One, {255, 0, 0}},
                               {" medium", TreeImage::Two, {0, 0, 255}},
                               {" weak", TreeImage::Three, {100, 100, 100}}};
    std::string all;
    for (const TreeRow& row : driver.rows(tree, parent)) {
        all += (all.empty() ? "" : ", ") + row.text;
        for (const Look& look : kLooks)
            all += row.image == look.image && row.color == look.color ? look.name : "";
    }
    return all;
}

}  // namespace pelk
