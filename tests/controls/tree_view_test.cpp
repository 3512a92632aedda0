// What every toolkit must do with a tree.

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

constexpr Color kRed{255, 0, 0};

/// A tree with the rows "Ann" (with a placeholder), "bob" and "Carl" (with a placeholder), and
/// handlers that fill and empty nodes as forms do.
class Tree : public testing::Test {
 protected:
    Tree() {
        window_->setInnerSize({6000, 4000});
        tree_.onExpand = [this](TreeNode& node) {
            ++expansions_;
            model_.suspendRedraw();
            model_.removeChildren(node);
            for (const char* text : filling_)
                model_.add(model_.add(node, text));
            model_.sortChildren(node);
            model_.resumeRedraw();
        };
        tree_.onCollapse = [this](TreeNode& node) {
            ++collapses_;
            model_.removeChildren(node);
            model_.add(node, "Loading...");
        };
        model_.add(ann_);
        model_.add(carl_);
        window_->show();
    }

    std::string texts(const TreePath& parent = {}) {
        std::string all;
        for (const TreeRow& row : driver_.rows(tree_, parent))
            all += (all.empty() ? "" : " ") + row.text;
        return all;
    }
    bool isExpanded(int row) {
        return driver_.rows(tree_).at(static_cast<std::size_t>(row)).expanded;
    }
    void expectHandled(int expansions, int collapses) {
        EXPECT_EQ(expansions_, expansions);
        EXPECT_EQ(collapses_, collapses);
    }

    TestPlatform platform_;
    Driver& driver_ = platform_.driver();
    std::unique_ptr<Window> window_ = platform_.toolkit().createWindow();
    TreeView& tree_ = window_->addTreeView({0, 0, 6000, 4000});
    TreeModel& model_ = tree_.model();
    TreeNode& ann_ = model_.add(model_.root(), "Ann");
    TreeNode& bob_ = model_.add(model_.root(), "bob");
    TreeNode& carl_ = model_.add(model_.root(), "Carl");
    std::vector<const char*> filling_ = {"y", "X", "z"};
    int expansions_ = 0;
    int collapses_ = 0;
};

TEST_F(Tree, ShowsItsModel) {
    model_.setImage(ann_, TreeImage::Contact);
    model_.setColor(ann_, kRed);
    model_.setImage(bob_, TreeImage::Three);
    model_.setText(carl_, "<i>Åsa</i> & Carl");
    const auto rows = driver_.rows(tree_);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].text, "Ann");
    EXPECT_EQ(rows[0].image, TreeImage::Contact);
    EXPECT_EQ(rows[0].color, kRed);
    EXPECT_TRUE(rows[0].hasExpander);
    EXPECT_FALSE(rows[0].expanded);
    EXPECT_EQ(rows[1].image, TreeImage::Three);
    EXPECT_EQ(rows[1].color, std::nullopt);
    EXPECT_FALSE(rows[1].hasExpander);
    EXPECT_EQ(rows[2].text, "<i>Åsa</i> & Carl");
    EXPECT_EQ(rows[2].image, TreeImage::None);

    model_.remove(bob_);
    TreeNode& adam = model_.add(model_.root(), "adam");
    EXPECT_EQ(texts(), "Ann <i>Åsa</i> & Carl adam");
    model_.add(adam, "below");
    model_.sortChildren(model_.root());
    EXPECT_EQ(texts(), "<i>Åsa</i> & Carl adam Ann");
    EXPECT_EQ(texts({1}), "below");
    tree_.repaint();
    model_.clear();
    EXPECT_EQ(texts(), "");
    model_.add(model_.root(), "anew");
    EXPECT_EQ(texts(), "anew");
}

TEST_F(Tree, HearsOfNothingWhileRedrawIsSuspended) {
    model_.suspendRedraw();
    TreeNode& dora = model_.add(model_.root(), "Dora");
    model_.add(dora);
    tree_.select(&dora);
    EXPECT_EQ(driver_.selectedText(tree_), std::nullopt) << "it is not there yet";
    model_.add(bob_, "new");
    EXPECT_EQ(texts(), "Ann bob Carl");
    driver_.settle();
    model_.resumeRedraw();
    EXPECT_EQ(texts(), "Ann bob Carl Dora");
    EXPECT_TRUE(driver_.rows(tree_)[3].hasExpander);
    EXPECT_EQ(texts({1}), "new");
}

TEST_F(Tree, TellsOnceOfEachActOfTheUser) {
    driver_.expand(tree_, {2});
    expectHandled(1, 0);
    EXPECT_EQ(texts({2}), "X y z");
    EXPECT_TRUE(isExpanded(2));
    driver_.expand(tree_, {2, 1});
    expectHandled(2, 0);
    EXPECT_EQ(texts({2, 1}), "X y z");
    driver_.collapse(tree_, {2});
    expectHandled(2, 1);
    EXPECT_EQ(texts({2}), "Loading...");
    EXPECT_FALSE(isExpanded(2));
    driver_.expand(tree_, {2});
    expectHandled(3, 1);
    EXPECT_EQ(texts({2}), "X y z");
    EXPECT_EQ(driver_.selectedText(tree_), std::nullopt) << "an expander selects nothing";
}

TEST_F(Tree, TellsOnceOfEachKey) {
    driver_.clickRow(tree_, {0});
    for (const Key key : {Key::Right, Key::Left, Key::Plus, Key::Plus, Key::Minus, Key::Minus})
        driver_.press(*window_, key);
    expectHandled(2, 2);
    driver_.press(*window_, Key::Asterisk);
    expectHandled(3, 2);
    EXPECT_TRUE(isExpanded(0));
    EXPECT_FALSE(driver_.rows(tree_, {0})[0].expanded) << "only one level is opened";
    driver_.clickRow(tree_, {1});
    for (const Key key : {Key::Plus, Key::Right, Key::Minus, Key::Asterisk})
        driver_.press(*window_, key);
    expectHandled(3, 2);
    EXPECT_FALSE(isExpanded(1)) << "a node without children is not expanded";
}

TEST_F(Tree, ClosesANodeThatHasNoChildren) {
    filling_.clear();
    driver_.expand(tree_, {0});
    expectHandled(1, 0);
    EXPECT_FALSE(isExpanded(0));
    EXPECT_FALSE(driver_.rows(tree_)[0].hasExpander);
    model_.add(ann_);
    EXPECT_FALSE(isExpanded(0));

    filling_ = {"only"};
    driver_.expand(tree_, {0});
    model_.remove(*ann_.children()[0]);
    model_.add(ann_, "later");
    EXPECT_FALSE(isExpanded(0));
    expectHandled(2, 0);
}

TEST_F(Tree, ShowsWhatItsHandlersThrow) {
    tree_.onExpand = [this](TreeNode& node) {
        model_.removeChildren(node);
        throw Error("unreachable code !");
    };
    platform_.dialogs.expectMessage("unreachable code !");
    driver_.expand(tree_, {0});
    EXPECT_FALSE(isExpanded(0));
    tree_.onExpand = [this](TreeNode&) { model_.clear(); };
    driver_.expand(tree_, {2});
    EXPECT_EQ(texts(), "");
}

TEST_F(Tree, SelectsForCodeWithoutTellingOfIt) {
    TreeNode* deep = &bob_;
    for (int i = 0; i < 60; ++i)
        model_.add(bob_, "child");
    for (int level = 0; level < 3; ++level)
        deep = &model_.add(*deep, "deep");
    tree_.select(deep);
    EXPECT_EQ(driver_.selectedText(tree_), "deep");
    EXPECT_EQ(tree_.selected(), deep);
    EXPECT_TRUE(isExpanded(1));
    EXPECT_TRUE(driver_.isInView(tree_, {1, 60, 0, 0}));
    driver_.clickRow(tree_, {0});
    driver_.settle();
    tree_.select(deep);
    driver_.expand(tree_, {0});
    EXPECT_FALSE(driver_.isInView(tree_, {1, 60, 0, 0}));
    tree_.select(deep);
    EXPECT_TRUE(driver_.isInView(tree_, {1, 60, 0, 0})) << "selected already, but out of view";
    driver_.collapse(tree_, {0});
    tree_.select(&ann_);
    EXPECT_EQ(driver_.selectedText(tree_), "Ann");
    EXPECT_FALSE(isExpanded(0));
    EXPECT_TRUE(driver_.isInView(tree_, {0}));
    tree_.select(nullptr);
    EXPECT_EQ(driver_.selectedText(tree_), std::nullopt);
    EXPECT_EQ(tree_.selected(), nullptr);
    driver_.settle();
    expectHandled(1, 1);
}

TEST_F(Tree, SelectsNothingOfItsOwnAccord) {
    const auto expectNone = [this](const char* when) {
        driver_.settle();
        EXPECT_EQ(driver_.selectedText(tree_), std::nullopt) << when;
        EXPECT_EQ(tree_.selected(), nullptr) << when;
    };
    Button& button = window_->addButton({0, 0, 100, 100}, "");
    expectNone("when shown");
    driver_.giveFocus(tree_);
    expectNone("with the focus");
    tree_.select(&bob_);
    model_.remove(bob_);
    expectNone("when the selected row is gone");
    tree_.select(ann_.children()[0]);
    model_.removeChildren(ann_);
    expectNone("when the only child is gone");
    tree_.select(&model_.add(ann_, "child"));
    driver_.giveFocus(button);
    driver_.giveFocus(tree_);
    model_.remove(ann_);
    expectNone("when the parent is gone");
    tree_.select(&carl_);
    model_.clear();
    expectNone("when cleared");
    model_.add(model_.root(), "Dora");
    driver_.giveFocus(button);
    driver_.giveFocus(tree_);
    expectNone("when filled again");
    driver_.press(*window_, Key::Down);
    EXPECT_EQ(driver_.selectedText(tree_), "Dora") << "the user may";
}

TEST_F(Tree, KeepsTheSelectionOnItsNode) {
    driver_.clickRow(tree_, {2});
    EXPECT_EQ(tree_.selected(), &carl_);
    model_.setText(ann_, "Zoe");
    model_.sortChildren(model_.root());
    model_.remove(bob_);
    EXPECT_EQ(texts(), "Carl Zoe");
    EXPECT_EQ(driver_.selectedText(tree_), "Carl");

    driver_.expand(tree_, {0});
    driver_.clickRow(tree_, {0, 1});
    EXPECT_EQ(driver_.selectedText(tree_), "y");
    driver_.collapse(tree_, {0});
    EXPECT_EQ(driver_.selectedText(tree_), "Carl") << "it does not stay out of sight";
}

}  // namespace

}  // namespace pelk
