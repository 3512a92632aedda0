// What the toolkit on Windows alone has: the keyboard in a window that stands in a host's message
// loop, colours, images, and the native tree under random edits.

#include <algorithm>

#include "platform/windows/controls/images.h"
#include "platform/windows/controls/native_control.h"
#include "tests/controls/random_edits.h"
#include "tests/controls/shapes.h"
#include "tests/controls/window_fixture.h"
#include "tests/support/windows/native_tree.h"
#include "tests/support/windows/paper.h"
#include "tests/support/windows/win_acts.h"

namespace pelk {
namespace {

using WinKeyboard = WindowTest;

TEST_F(WinKeyboard, ArrowsStayAmongTheOptionButtonsAndTabLeavesThem) {
    window_->setInnerSize({6000, 4000});
    TextBox& before = window_->addTextBox({0, 0, 2000, 300});
    OptionButton& first = window_->addOptionButton({0, 500, 2000, 300}, "first");
    TextBox& between = window_->addTextBox({0, 1000, 2000, 300});
    OptionButton& second = window_->addOptionButton({0, 1500, 2000, 300}, "second");
    Button& behind = window_->addButton({0, 2000, 2000, 300}, "&Behind");
    std::string acts;
    first.onClick = [&acts] { acts += "1"; };
    second.onClick = [&acts] { acts += "2"; };
    behind.onClick = [&acts] { acts += "b"; };
    window_->show();
    driver_.giveFocus(before);
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(first));
    EXPECT_EQ(acts, "") << "the focus alone checks nothing";
    for (const Key key : {Key::Down, Key::Down, Key::Up})
        driver_.press(*window_, key);
    EXPECT_EQ(acts, "212");
    EXPECT_TRUE(driver_.isChecked(second));
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(between));
    driver_.press(*window_, Key::Down);
    EXPECT_TRUE(driver_.hasFocus(between));
    PostMessageW(native(between), WM_SYSCHAR, L'b', 1 | 1 << 29);
    driver_.settle();
    EXPECT_EQ(acts, "212b");
}

TEST_F(WinKeyboard, MenuKeyAsksForAMenuAtTheSelectedRow) {
    window_->setInnerSize({6000, 4000});
    TreeView& tree = window_->addTreeView({1000, 0, 5000, 4000});
    for (int row = 0; row < 100; ++row)
        tree.model().add(tree.model().root(), "row");
    int asked = 0;
    tree.onMenuRequest = [&](ScreenPoint where) {
        RECT place = {};
        GetWindowRect(native(tree), &place);
        EXPECT_TRUE(PtInRect(&place, {where.x, where.y}));
        ++asked;
    };
    window_->show();
    SendMessageW(native(tree), WM_CONTEXTMENU, 0, -1);
    EXPECT_EQ(asked, 0) << "nothing is selected";
    tree.select(tree.model().root().children()[50]);
    SendMessageW(native(tree), WM_VSCROLL, SB_TOP, 0);
    SendMessageW(native(tree), WM_CONTEXTMENU, 0, -1);
    EXPECT_EQ(asked, 1);
}

template <class Test>
std::vector<bool> pixelsThat(const Paper& paper, Test test) {
    std::vector<bool> pixels;
    for (const COLORREF color : paper.pixels())
        pixels.push_back(test(color));
    return pixels;
}

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
        shapes.push_back(pixelsThat(paper, [](COLORREF color) { return GetGValue(color) < 200; }));
    }
    ImageList_Destroy(images);
    EXPECT_EQ(countOf(shapes[0]), 0) << "the first stands for none";
    shapes.erase(shapes.begin());
    expectDifferentShapes(shapes);
}

class WinTree : public WindowTest {
 protected:
    WinTree() {
        window_->setInnerSize({6000, 4000});
        window_->show();
    }
    /// The number of such pixels that the tree paints.
    template <class Matches>
    auto pixelsPainted(const Matches& matches) {
        driver_.settle();
        const HWND native = dynamic_cast<NativeHandle&>(tree_).handle();
        RECT inner = {};
        GetClientRect(native, &inner);
        const Paper paper({inner.right, inner.bottom});
        SendMessageW(native, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.dc()), PRF_CLIENT);
        return countOf(pixelsThat(paper, matches));
    }
    auto redness() {
        return pixelsPainted(
            [](COLORREF color) { return GetRValue(color) > 200 && GetGValue(color) < 80; });
    }
    /// The native tree shows what the model holds, each node once.
    void expectSame(const TreeNode& node, const TreePath& path) {
        const auto rows = driver_.rows(tree_, path);
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

TEST_F(WinTree, ShowsTheSelectionWithoutTheFocus) {
    tree_.select(&model_.add(model_.root(), "MMMMMMMMMMMMMMMMMMM"));
    window_->addTextBox({0, 0, 100, 100}).focus();
    const COLORREF selection = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_GT(pixelsPainted([=](COLORREF color) { return color == selection; }), 100);
}

BOOL CALLBACK noteTip(HWND window, LPARAM tip) {
    if (classOf(window) == L"tooltips_class32" && SendMessageW(window, TTM_GETTOOLCOUNT, 0, 0) == 1)
        *reinterpret_cast<HWND*>(tip) = window;
    return TRUE;
}

TEST_F(WinTree, ShowsTheWholeOfADetailThatIsCut) {
    std::string detail = "2 relations";
    tree_.detailOf = [&detail](const TreeNode&) { return detail; };
    model_.add(model_.root(), "Ann");
    HWND tip = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), noteTip, reinterpret_cast<LPARAM>(&tip));
    /// Returns the tip's text if the pointer is where the tip shows it.
    const auto tipBesideText = [&] {
        const RECT text = *NativeTree(tree_).place(NativeTree(tree_).at({0}));
        RECT inner = {};
        GetClientRect(native(tree_), &inner);
        const POINT point = {inner.right * 3 / 4, (text.top + text.bottom) / 2};
        SendMessageW(native(tree_), WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
        wchar_t shown[256] = L"";
        TTTOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.lpszText = shown;
        SendMessageW(tip, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool));
        return PtInRect(&tool.rect, point) ? toUtf8(shown) : "";
    };
    EXPECT_EQ(tipBesideText(), "");
    detail = "2 relations, 310 e-mails, an.address.as.long.as@this.one.which.does.not.fit.example";
    EXPECT_EQ(tipBesideText(), detail);
    detail = "";
    EXPECT_EQ(tipBesideText(), "");
}

TEST_F(WinTree, FollowsItsModelThroughRandomEdits) {
    editAtRandom(tree_, driver_, [this] { expectSame(model_.root(), {}); });
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
        driver_.settle();
        ASSERT_NO_FATAL_FAILURE(expectSame(model_.root(), {}));
        for (const TreeRow& row : driver_.rows(tree_))
            EXPECT_EQ(row.expanded, expanded);
    };
    int told = 0;
    tree_.onExpand = tree_.onCollapse = tree_.onSelect = [&told](TreeNode&) { ++told; };
    tree_.select(top[kMany - 1]->children()[0]);
    int inView = 0;
    while (!driver_.isInView(tree_, {inView}))
        ++inView;
    setAll(true);
    EXPECT_EQ(tree_.selected(), top[kMany - 1]->children()[0]);
    EXPECT_TRUE(driver_.isInView(tree_, {inView})) << "it has scrolled away";
    setAll(false);
    EXPECT_EQ(tree_.selected(), top[kMany - 1]) << "the selection does not stay out of sight";
    EXPECT_EQ(told, 0);
}

}  // namespace
}  // namespace pelk
