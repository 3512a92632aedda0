#pragma once
// Images that can be told apart without their colours.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace pelk {

/// Which of the 256 pixels of each image are drawn: some of each, and not the same.
inline void expectDifferentShapes(const std::vector<std::vector<bool>>& shapes) {
    for (std::size_t image = 0; image < shapes.size(); ++image) {
        EXPECT_GT(std::count(shapes[image].begin(), shapes[image].end(), true), 20) << image;
        for (std::size_t other = 0; other < image; ++other) {
            int different = 0;
            for (std::size_t pixel = 0; pixel < 256; ++pixel)
                different += shapes[other][pixel] != shapes[image][pixel];
            EXPECT_GT(different, 10) << other << " and " << image;
        }
    }
}

}  // namespace pelk
