// What every toolkit must do with a tree.

#include <set>

#include "platform/error.h"
#include "tests/controls/window_fixture.h"

namespace pelk {
namespace {

/// A tree with handlers that fill and empty nodes as forms do.
class Tree : public WindowTest {
 protected:
    Tree() {
        window_->setInnerSize({6000, 4000});
        tree_.onExpand = [this](TreeNode& node) {
            acts_ += "+" + node.text();
            model_.suspendRedraw();
            model_.removeChildren(node);
            for (const char* text : filling_)
                model_.add(model_.add(node, text), "?");
            model_.sortChildren(node);
            model_.resumeRedraw();
        };
        tree_.onCollapse = [this](TreeNode& node) {
            acts_ += "-" + node.text();
            model_.removeChildren(node);
            model_.add(node, "?");
        };
        model_.add(ann_, "?");
        model_.add(carl_, "?");
        window_->show();
    }

    /// The rows, each with those below it: in round brackets when it is expanded, else in square.
    std::string shown(const TreePath& parent = {}) {
        std::string all;
        TreePath path = parent;
        path.push_back(0);
        for (const TreeRow& row : driver_.rows(tree_, parent)) {
            const std::string below = shown(path);
            EXPECT_EQ(row.hasExpander, !below.empty()) << row.text;
            all += (all.empty() ? "" : " ") + row.text;
            if (row.expanded || row.hasExpander)
                all += row.expanded ? "(" + below + ")" : "[" + below + "]";
            ++path.back();
        }
        return all;
    }

    TreeView& tree_ = window_->addTreeView({0, 0, 6000, 4000});
    TreeModel& model_ = tree_.model();
    TreeNode& ann_ = model_.add(model_.root(), "Ann");
    TreeNode& bob_ = model_.add(model_.root(), "bob");
    TreeNode& carl_ = model_.add(model_.root(), "Carl");
    std::vector<const char*> filling_ = {"y", "X"};
    /// What the handlers heard of.
    std::string acts_;
};

TEST_F(Tree, ShowsItsModel) {
    model_.setImage(ann_, TreeImage::Contact);
    model_.setColor(ann_, {255, 0, 0});
    model_.setImage(bob_, TreeImage::Three);
    model_.setText(carl_, "<i>Åsa</i> & Carl");
    model_.add(carl_, "a");
    const std::vector<TreeRow> rows = driver_.rows(tree_);
    EXPECT_EQ(rows.at(0).image, TreeImage::Contact);
    EXPECT_EQ(rows.at(0).color, (Color{255, 0, 0}));
    EXPECT_EQ(rows.at(1).image, TreeImage::Three);
    EXPECT_EQ(rows.at(1).color, std::nullopt);
    EXPECT_EQ(rows.at(2).image, TreeImage::None);
    EXPECT_EQ(shown(), "Ann[?] bob <i>Åsa</i> & Carl[? a]");
    model_.setText(carl_, "aaron");
    model_.sortChildren(model_.root());
    EXPECT_EQ(shown(), "aaron[? a] Ann[?] bob");
    tree_.repaint();
}

TEST_F(Tree, TellsOnceOfEachClick) {
    driver_.expand(tree_, {2});
    EXPECT_EQ(shown(), "Ann[?] bob Carl(X[?] y[?])");
    driver_.expand(tree_, {2, 1});
    EXPECT_EQ(shown(), "Ann[?] bob Carl(X[?] y(X[?] y[?]))");
    driver_.collapse(tree_, {2});
    EXPECT_EQ(shown(), "Ann[?] bob Carl[?]");
    driver_.expand(tree_, {2});
    EXPECT_EQ(shown(), "Ann[?] bob Carl(X[?] y[?])");
    EXPECT_EQ(acts_, "+Carl+y-Carl+Carl");
    EXPECT_EQ(driver_.selectedText(tree_), std::nullopt) << "an expander selects nothing";
}

TEST_F(Tree, TellsOnceOfEachKey) {
    using enum Key;
    driver_.clickRow(tree_, {0});
    for (const Key key : {Right, Left, Plus, Plus, Minus, Minus, Asterisk})
        driver_.press(*window_, key);
    EXPECT_EQ(shown(), "Ann(X[?] y[?]) bob Carl[?]") << "only one level is opened";
    driver_.clickRow(tree_, {1});
    for (const Key key : {Plus, Right, Minus, Asterisk})
        driver_.press(*window_, key);
    EXPECT_EQ(shown(), "Ann(X[?] y[?]) bob Carl[?]") << "there is nothing to open";
    EXPECT_EQ(acts_, "+Ann-Ann+Ann-Ann+Ann");
}

TEST_F(Tree, ClosesANodeThatHasNoChildren) {
    filling_.clear();
    driver_.expand(tree_, {0});
    EXPECT_EQ(shown(), "Ann bob Carl[?]");
    model_.add(ann_, "?");
    EXPECT_EQ(shown(), "Ann[?] bob Carl[?]");

    filling_ = {"only"};
    driver_.expand(tree_, {0});
    model_.remove(*ann_.children()[0]);
    model_.add(ann_, "later");
    EXPECT_EQ(shown(), "Ann[later] bob Carl[?]");
    EXPECT_EQ(acts_, "+Ann+Ann");
}

TEST_F(Tree, SurvivesWhatItsHandlersDo) {
    tree_.onExpand = [this](TreeNode& node) {
        model_.removeChildren(node);
        throw Error("unreachable code !");
    };
    platform_.dialogs.expectMessage("unreachable code !");
    driver_.expand(tree_, {0});
    EXPECT_EQ(shown(), "Ann bob Carl[?]");
    tree_.onExpand = [this](TreeNode&) { model_.clear(); };
    driver_.expand(tree_, {2});
    EXPECT_EQ(shown(), "");
}

TEST_F(Tree, SelectsForCodeWithoutTellingOfIt) {
    for (int i = 0; i < 60; ++i)
        model_.add(bob_, "child");
    TreeNode& deep = model_.add(model_.add(bob_, "last child"), "deep");
    tree_.select(&deep);
    EXPECT_EQ(driver_.selectedText(tree_), "deep");
    EXPECT_EQ(tree_.selected(), &deep);
    EXPECT_TRUE(driver_.isInView(tree_, {1, 60, 0}));
    driver_.expand(tree_, {0});
    EXPECT_FALSE(driver_.isInView(tree_, {1, 60, 0}));
    tree_.select(&deep);
    EXPECT_TRUE(driver_.isInView(tree_, {1, 60, 0})) << "selected already, but out of view";
    tree_.select(&carl_);
    EXPECT_EQ(driver_.selectedText(tree_), "Carl");
    EXPECT_FALSE(driver_.rows(tree_).at(2).expanded);
    tree_.select(nullptr);
    EXPECT_EQ(driver_.selectedText(tree_), std::nullopt);
    EXPECT_EQ(tree_.selected(), nullptr);
    driver_.settle();
    EXPECT_EQ(acts_, "+Ann");
}

TEST_F(Tree, SelectsNothingOfItsOwnAccord) {
    Button& button = window_->addButton({0, 0, 100, 100}, "");
    const auto expectNone = [&](const char* when) {
        driver_.giveFocus(button);
        driver_.giveFocus(tree_);
        driver_.settle();
        EXPECT_EQ(driver_.selectedText(tree_), std::nullopt) << when;
        EXPECT_EQ(tree_.selected(), nullptr) << when;
    };
    expectNone("when shown");
    tree_.select(&bob_);
    model_.remove(bob_);
    expectNone("when the selected row is gone");
    tree_.select(ann_.children()[0]);
    model_.removeChildren(ann_);
    expectNone("when the only child is gone");
    tree_.select(&model_.add(ann_, "child"));
    model_.remove(ann_);
    expectNone("when the parent is gone");
    tree_.select(&carl_);
    model_.clear();
    expectNone("when cleared");
    model_.add(model_.root(), "Dora");
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
    EXPECT_EQ(shown(), "Carl[?] Zoe[?]");
    EXPECT_EQ(driver_.selectedText(tree_), "Carl");

    driver_.expand(tree_, {0});
    driver_.clickRow(tree_, {0, 1});
    EXPECT_EQ(driver_.selectedText(tree_), "y");
    driver_.collapse(tree_, {0});
    EXPECT_EQ(driver_.selectedText(tree_), "Carl") << "it does not stay out of sight";
}

TEST_F(Tree, ExpandsForCodeWithoutTellingOfIt) {
    tree_.setExpanded(ann_, true);
    tree_.setExpanded(bob_, true);
    model_.add(bob_, "later");
    EXPECT_EQ(shown(), "Ann(?) bob[later] Carl[?]");
    model_.suspendRedraw();
    TreeNode& dora = model_.add(model_.root(), "Dora");
    tree_.select(&dora);
    EXPECT_EQ(driver_.selectedText(tree_), std::nullopt) << "it is not there yet";
    TreeNode& child = model_.add(dora, "child");
    TreeNode& leaf = model_.add(child, "leaf");
    TreeNode& gone = model_.add(model_.root(), "gone");
    model_.add(gone, "?");
    for (TreeNode* node : {&carl_, &dora, &child, &leaf, &gone})
        tree_.setExpanded(*node, true);
    tree_.setExpanded(ann_, false);
    tree_.setExpanded(carl_, false);
    model_.remove(gone);
    for (const char* text : {"Eve", "Fay"})
        model_.add(model_.add(model_.root(), text), "?");
    model_.resumeRedraw();
    EXPECT_EQ(shown(), "Ann[?] bob[later] Carl[?] Dora(child(leaf)) Eve[?] Fay[?]");
    tree_.select(&leaf);
    tree_.setExpanded(dora, false);
    EXPECT_FALSE(driver_.rows(tree_).at(3).expanded);
    EXPECT_EQ(driver_.selectedText(tree_), "Dora") << "it does not stay out of sight";
    driver_.settle();
    EXPECT_EQ(acts_, "");
}

TEST_F(Tree, TellsOfWhatTheUserSelects) {
    tree_.onSelect = [this](TreeNode& node) {
        EXPECT_EQ(tree_.selected(), &node);
        acts_ += "=" + node.text();
    };
    tree_.onDeleteKey = [this] { acts_ += "x"; };
    driver_.clickRow(tree_, {1});
    driver_.press(*window_, Key::Down);
    driver_.press(*window_, Key::Delete);
    EXPECT_EQ(acts_, "=bob=Carlx");

    model_.remove(carl_);
    tree_.select(&ann_);
    model_.sortChildren(model_.root());
    driver_.expand(tree_, {0});
    tree_.select(ann_.children()[0]);
    driver_.collapse(tree_, {0});
    driver_.settle();
    EXPECT_EQ(acts_, "=bob=Carlx+Ann-Ann") << "neither code nor an expander selects";

    tree_.onSelect = [](TreeNode&) { throw Error("No such contact."); };
    platform_.dialogs.expectMessage("No such contact.");
    driver_.press(*window_, Key::Down);
    tree_.onSelect = [this](TreeNode&) { model_.clear(); };
    driver_.press(*window_, Key::Up);
    EXPECT_EQ(shown(), "");
}

TEST_F(Tree, SelectsSeveralWithControlAndShift) {
    using Texts = std::vector<std::string>;
    driver_.clickRow(tree_, {0});
    driver_.clickRowWith(Hold::Control, tree_, {1});
    EXPECT_EQ(driver_.selectedTexts(tree_), Texts{"bob"}) << "only on request";
    tree_.allowMultipleSelection();
    tree_.onSelect = [this](TreeNode& node) { acts_ += "=" + node.text(); };
    const auto expect = [this](const std::vector<TreeNode*>& nodes, TreeNode* current) {
        Texts texts;
        for (const TreeNode* node : nodes)
            texts.push_back(node->text());
        EXPECT_EQ(driver_.selectedTexts(tree_), texts);
        EXPECT_EQ(tree_.selectedNodes(), nodes);
        EXPECT_EQ(tree_.selected(), current);
    };
    driver_.clickRow(tree_, {2});
    driver_.clickRowWith(Hold::Control, tree_, {0});
    expect({&ann_, &carl_}, &ann_);
    driver_.clickRowWith(Hold::Control, tree_, {0});
    expect({&carl_}, &carl_);
    EXPECT_TRUE(acts_.starts_with("=Carl=Ann")) << acts_;
    driver_.clickRow(tree_, {0});
    driver_.clickRowWith(Hold::Shift, tree_, {2});
    expect({&ann_, &bob_, &carl_}, &carl_);
    driver_.menuAt(tree_, {1});
    expect({&ann_, &bob_, &carl_}, &bob_);
    model_.remove(carl_);
    expect({&ann_, &bob_}, &bob_);
    driver_.expand(tree_, {0});
    driver_.clickRowWith(Hold::Control, tree_, {0, 1});
    driver_.clickRowWith(Hold::Control, tree_, {1});
    driver_.clickRowWith(Hold::Control, tree_, {1});
    driver_.collapse(tree_, {0});
    EXPECT_EQ(tree_.selectedNodes().back(), &bob_) << "nothing below the collapsed row";
    driver_.clickRow(tree_, {1});
    expect({&bob_}, &bob_);
    driver_.clickRowWith(Hold::Control, tree_, {0});
    model_.clear();
    expect({}, nullptr);
}

TEST_F(Tree, SelectsSeveralWithShiftAndTheArrows) {
    tree_.allowMultipleSelection();
    driver_.clickRow(tree_, {0});
    const auto after = [this](const std::string& keys) {
        driver_.press(*window_, keys);
        return driver_.selectedTexts(tree_);
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(after("Shift+Down"), (Texts{"Ann", "bob"}));
    EXPECT_EQ(after("Shift+Down"), (Texts{"Ann", "bob", "Carl"}));
    EXPECT_EQ(after("Shift+Up"), (Texts{"Ann", "bob"}));
    EXPECT_EQ(tree_.selected(), &bob_);
    EXPECT_EQ(after("Down"), Texts{"Carl"});
    EXPECT_EQ(after("Shift+Up"), (Texts{"bob", "Carl"}));
}

TEST_F(Tree, TellsOfTheNodeThatTheUserActivates) {
    Button& button = window_->addButton({0, 0, 100, 100}, "");
    driver_.doubleClickRow(tree_, {1});
    EXPECT_EQ(acts_, "") << "nobody handles it";
    tree_.onActivate = [this](TreeNode& node) { acts_ += "!" + node.text(); };
    driver_.doubleClickRow(tree_, {1});
    driver_.press(*window_, Key::Enter);
    driver_.doubleClickRow(tree_, {2});
    EXPECT_EQ(acts_, "!bob!bob+Carl!Carl");
    tree_.select(nullptr);
    driver_.press(*window_, Key::Enter);
    driver_.giveFocus(button);
    driver_.press(*window_, Key::Enter);
    EXPECT_EQ(acts_, "!bob!bob+Carl!Carl");
    tree_.onActivate = [this](TreeNode&) { model_.clear(); };
    driver_.doubleClickRow(tree_, {0});
    EXPECT_EQ(shown(), "");
}

TEST_F(Tree, PaintsADetailBesideTheText) {
    const auto colors = [this](const TreePath& row) {
        const std::vector<std::uint32_t> picture = driver_.pictureBeside(tree_, row);
        return std::set<std::uint32_t>(picture.begin(), picture.end()).size();
    };
    EXPECT_EQ(colors({1}), 1U) << "the background";
    tree_.detailOf = [this](const TreeNode& node) {
        if (&node == &ann_)
            throw Error("No detail.");
        return node.text() == "bob" ? "12 e-mails" : std::string();
    };
    tree_.repaint();
    EXPECT_EQ(colors({0}), 1U);
    EXPECT_GT(colors({1}), 1U);
    model_.setText(bob_, "Bob");
    EXPECT_EQ(colors({1}), 1U);
    model_.setText(bob_, "bob");
    tree_.select(&bob_);
    EXPECT_GT(colors({1}), 1U);
}

TEST_F(Tree, ScrollsTheChildrenOfANodeIntoView) {
    std::vector<TreeNode*> more;
    for (int i = 0; i < 40; ++i)
        model_.add(*more.emplace_back(&model_.add(model_.root(), "more")), "?");
    int last = 3;
    while (driver_.isInView(tree_, {last + 1}))
        ++last;
    driver_.expand(tree_, {last});
    EXPECT_TRUE(driver_.isInView(tree_, {last, 1}));
    EXPECT_TRUE(driver_.isInView(tree_, {2})) << "no further than necessary";
    filling_.resize(100, "z");
    driver_.expand(tree_, {last - 1});
    EXPECT_TRUE(driver_.isInView(tree_, {last - 1})) << "the node itself stays";
    EXPECT_FALSE(driver_.isInView(tree_, {last - 2}));
}

TEST_F(Tree, StaysWhereItIsScrolledWhenCodeExpandsNodes) {
    for (int row = 0; row < 100; ++row)
        model_.add(carl_, "child");
    tree_.setExpanded(ann_, true);
    tree_.setExpanded(carl_, true);
    EXPECT_EQ(tree_.firstVisible(), &ann_);
}

TEST_F(Tree, OpensAMenuForTheRowUnderThePointer) {
    PopupMenu& menu = window_->addPopupMenu();
    MenuItem& rename = menu.addItem("Rename");
    MenuItem& remove = menu.addItem("Delete");
    using Captions = std::vector<std::string>;
    EXPECT_EQ(driver_.menuAt(tree_, {0}), Captions()) << "nobody opens one";
    EXPECT_EQ(driver_.selectedText(tree_), "Ann");
    tree_.onSelect = [this](TreeNode& node) { acts_ += "=" + node.text(); };
    tree_.onMenuRequest = [&](ScreenPoint where) {
        acts_ += "?" + tree_.selected()->text();
        menu.open(where);
    };
    EXPECT_EQ(driver_.menuAt(tree_, {2}), (Captions{"Rename", "Delete"}));
    EXPECT_EQ(acts_, "=Carl?Carl");
    rename.setVisible(false);
    EXPECT_EQ(driver_.menuAt(tree_, {2}), Captions{"Delete"});
    remove.setVisible(false);
    EXPECT_EQ(driver_.menuAt(tree_, {2}), Captions());
    rename.setVisible(true);
    EXPECT_EQ(driver_.menuAt(tree_, {2}), Captions{"Rename"});
    driver_.expand(tree_, {0});

    rename.onClick = [] { throw Error("It has no name."); };
    platform_.dialogs.expectMessage("It has no name.");
    driver_.chooseAt(tree_, {0, 1}, "Rename");
    rename.onClick = [this] {
        model_.remove(*tree_.selected());
        window_->hide();
    };
    driver_.chooseAt(tree_, {0, 1}, "Rename");
    EXPECT_FALSE(driver_.isVisible(*window_));
    EXPECT_EQ(shown(), "Ann(X[?]) bob Carl[?]");
    tree_.onMenuRequest = [](ScreenPoint) { throw Error("Nothing to choose from."); };
    platform_.dialogs.expectMessage("Nothing to choose from.");
    window_->show();
    EXPECT_EQ(driver_.menuAt(tree_, {1}), Captions());
    int menus = 0;
    tree_.onMenuRequest = [&menus](ScreenPoint) { ++menus; };
    driver_.press(*window_, "F10");
    EXPECT_EQ(menus, 1);
}

}  // namespace
}  // namespace pelk
