// What the toolkit draws of its own: colours, images; and the native tree under random edits.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/windows/controls/images.h"
#include "platform/windows/controls/native_control.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

/// A picture in memory to draw on, white at first.
class Paper {
 public:
    explicit Paper(SIZE size) : size_(size), dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, size.cx, size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0);
        before_ = SelectObject(dc_, bitmap_);
        PatBlt(dc_, 0, 0, size.cx, size.cy, WHITENESS);
    }
    ~Paper() {
        SelectObject(dc_, before_);
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    Paper(const Paper&) = delete;
    Paper& operator=(const Paper&) = delete;

    HDC dc() const { return dc_; }
    template <class Test>
    std::vector<bool> pixelsThat(Test test) const {
        std::vector<bool> pixels;
        for (int y = 0; y < size_.cy; ++y)
            for (int x = 0; x < size_.cx; ++x)
                pixels.push_back(test(GetPixel(dc_, x, y)));
        return pixels;
    }

 private:
    SIZE size_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

auto countOf(const std::vector<bool>& pixels) {
    return std::count(pixels.begin(), pixels.end(), true);
}

TEST(WinLook, ImagesDifferInShape) {
    const HIMAGELIST images = createTreeImageList(16);
    std::vector<std::vector<bool>> shapes;
    for (int image = 0; image < 6; ++image) {
        const Paper paper({16, 16});
        ImageList_DrawEx(images, image, paper.dc(), 0, 0, 16, 16, CLR_NONE, CLR_NONE,
                         ILD_TRANSPARENT);
        shapes.push_back(paper.pixelsThat([](COLORREF color) { return GetGValue(color) < 200; }));
        EXPECT_EQ(countOf(shapes.back()) > 20, image != 0) << image;
        for (std::size_t other = 0; other + 1 < shapes.size(); ++other) {
            int different = 0;
            for (std::size_t pixel = 0; pixel < 256; ++pixel)
                different += shapes[other][pixel] != shapes.back()[pixel];
            EXPECT_GT(different, 10) << other << " and " << image;
        }
    }
    ImageList_Destroy(images);
}

class WinTree : public testing::Test {
 protected:
    WinTree() {
        window_->setInnerSize({6000, 4000});
        window_->show();
    }
    /// The number of red pixels that the tree paints.
    auto redness() {
        platform_.driver().settle();
        const HWND native = dynamic_cast<NativeHandle&>(tree_).handle();
        RECT inner = {};
        GetClientRect(native, &inner);
        const Paper paper({inner.right, inner.bottom});
        SendMessageW(native, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.dc()), PRF_CLIENT);
        return countOf(paper.pixelsThat(
            [](COLORREF color) { return GetRValue(color) > 200 && GetGValue(color) < 80; }));
    }
    /// The native tree shows what the model holds, each node once.
    void expectSame(const TreeNode& node, const TreePath& path) {
        const auto rows = platform_.driver().rows(tree_, path);
        ASSERT_EQ(static_cast<int>(rows.size()), node.shownCount());
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const TreeNode& child = *node.children()[row];
            ASSERT_EQ(rows[row].text, child.text());
            ASSERT_EQ(rows[row].hasExpander, child.shownCount() > 0);
            TreePath below = path;
            below.push_back(static_cast<int>(row));
            expectSame(child, below);
        }
    }

    TestPlatform platform_;
    std::unique_ptr<Window> window_ = platform_.toolkit().createWindow();
    TreeView& tree_ = window_->addTreeView({0, 0, 6000, 4000});
    TreeModel& model_ = tree_.model();
};

TEST_F(WinTree, PaintsColoursButNotOnTheSelectedRow) {
    TreeNode& node = model_.add(model_.root(), "MMMMMMMMMMMMMMMMMMM");
    EXPECT_EQ(redness(), 0);
    model_.setColor(node, {255, 0, 0});
    EXPECT_GT(redness(), 20);
    tree_.select(&node);
    EXPECT_EQ(redness(), 0);
}

TEST_F(WinTree, FollowsItsModelThroughRandomEdits) {
    std::mt19937 random(7);
    const auto below = [&random](std::size_t count) { return random() % count; };
    const auto anyNode = [&]() -> TreeNode& {
        TreeNode* node = &model_.root();
        while (!node->children().empty() && below(4) != 0)
            node = node->children()[below(node->children().size())];
        return *node;
    };
    for (int step = 0; step < 1500; ++step) {
        TreeNode& node = anyNode();
        const auto act = below(12);
        if (act < 5)
            model_.add(node, std::to_string(below(1000)));
        else if (act == 5)
            tree_.select(node.parent() == nullptr ? nullptr : &node);
        else if (act == 6 && node.parent() != nullptr)
            model_.remove(node);
        else if (act == 7)
            model_.sortChildren(node);
        else if (act == 8)
            model_.suspendRedraw();
        else if (act == 9)
            model_.resumeRedraw();
        else if (act == 10 && below(20) == 0)
            below(2) == 0 ? model_.clear() : model_.removeChildren(node);
        else if (node.parent() != nullptr)
            model_.setText(node, "x");
        if (step % 50 == 0) {
            platform_.driver().settle();
            ASSERT_NO_FATAL_FAILURE(expectSame(model_.root(), {})) << step;
        }
    }
}

TEST_F(WinTree, OpensAndClosesManyAtOnce) {
    constexpr int kMany = 40;
    for (int row = 0; row < kMany; ++row)
        model_.add(model_.add(model_.root(), "x"), "y");
    const auto top = model_.root().children();
    const auto setAll = [&](bool expanded) {
        model_.suspendRedraw();
        for (TreeNode* node : top)
            tree_.setExpanded(*node, expanded);
        model_.resumeRedraw();
        platform_.driver().settle();
        ASSERT_NO_FATAL_FAILURE(expectSame(model_.root(), {}));
        for (const TreeRow& row : platform_.driver().rows(tree_))
            EXPECT_EQ(row.expanded, expanded);
    };
    int told = 0;
    tree_.onExpand = tree_.onCollapse = tree_.onSelect = [&told](TreeNode&) { ++told; };
    tree_.select(top[kMany - 1]->children()[0]);
    int inView = 0;
    while (!platform_.driver().isInView(tree_, {inView}))
        ++inView;
    setAll(true);
    EXPECT_EQ(tree_.selected(), top[kMany - 1]->children()[0]);
    EXPECT_TRUE(platform_.driver().isInView(tree_, {inView})) << "it has scrolled away";
    setAll(false);
    EXPECT_EQ(tree_.selected(), top[kMany - 1]) << "the selection does not stay out of sight";
    EXPECT_EQ(told, 0);
}

}  // namespace

}  // namespace pelk
