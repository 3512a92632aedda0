#include "platform/tree_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>

namespace pelk {

namespace {

/// Orders texts by their bytes.
class PlainLanguage : public Language {
 public:
    std::vector<std::size_t> alphabeticalOrder(
        const std::vector<std::string_view>& texts) const override {
        std::vector<std::size_t> order(texts.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
            return texts[left] < texts[right];
        });
        return order;
    }
    bool startsWith(std::string_view, std::string_view) const override { return false; }
    std::string lowerCase(std::string_view) const override { return {}; }
};

/// A native tree that knows only what it has been told, and checks that it is told no nonsense.
class Mirror : public TreeListener {
 public:
    explicit Mirror(TreeModel& model) : model_(model) { known_[&model.root()]; }

    /// The native tree shows what the model says is shown, and nothing else.
    void expectInStep() {
        expectSame(model_.root());
        std::size_t shown = 0;
        for (const auto& [node, children] : known_)
            shown += children.size();
        EXPECT_EQ(known_.size(), shown + 1) << "nodes that are gone are still known";
    }
    bool knows(const TreeNode& node) const { return known_.count(&node) > 0; }
    int insertions() const { return insertions_; }

    void beforeInsert(TreeNode& parent, int firstRow, int lastRow) override {
        begin(parent, firstRow, lastRow);
        ++insertions_;
        EXPECT_EQ(firstRow, count(parent));
        EXPECT_EQ(parent.shownCount(), firstRow) << "the change has been made already";
    }
    void afterInsert() override {
        TreeNode& parent = end();
        EXPECT_EQ(parent.shownCount(), last_ + 1);
        for (int row = first_; row <= last_; ++row)
            learn(parent, row);
    }
    void beforeRemove(TreeNode& parent, int firstRow, int lastRow) override {
        begin(parent, firstRow, lastRow);
        EXPECT_LT(lastRow, count(parent));
        expectSame(parent);
    }
    void afterRemove() override {
        TreeNode& parent = end();
        auto& children = known_[&parent];
        for (int row = first_; row <= last_; ++row)
            forget(children[static_cast<std::size_t>(row)]);
        children.erase(children.begin() + first_, children.begin() + last_ + 1);
        expectSame(parent);
    }
    void beforeReorder(TreeNode& parent) override {
        begin(parent, 0, count(parent) - 1);
        expectSame(parent);
    }
    void afterReorder(TreeNode& parent) override {
        EXPECT_EQ(&end(), &parent);
        auto& children = known_[&parent];
        EXPECT_TRUE(std::is_permutation(children.begin(), children.end(), parent.children().begin(),
                                        parent.children().end()));
        children = parent.children();
    }
    void beforeClear() override { begin(model_.root(), 0, 0); }
    void afterClear() override {
        end();
        known_.clear();
        known_[&model_.root()];
    }
    void changed(TreeNode& node) override { EXPECT_TRUE(knows(node)); }

 private:
    void begin(TreeNode& parent, int first, int last) {
        EXPECT_EQ(changing_, nullptr) << "two changes at a time";
        EXPECT_TRUE(knows(parent));
        EXPECT_LE(first, last);
        changing_ = &parent;
        first_ = first;
        last_ = last;
    }
    TreeNode& end() { return *std::exchange(changing_, nullptr); }

    int count(const TreeNode& node) { return static_cast<int>(known_[&node].size()); }

    void learn(TreeNode& parent, int row) {
        TreeNode& node = *parent.children().at(static_cast<std::size_t>(row));
        EXPECT_FALSE(knows(node));
        known_[&parent].push_back(&node);
        known_[&node];
        for (int below = 0; below < node.shownCount(); ++below)
            learn(node, below);
    }
    void forget(const TreeNode* node) {
        for (const TreeNode* child : known_[node])
            forget(child);
        known_.erase(node);
    }
    void expectSame(const TreeNode& node) {
        const auto& children = known_[&node];
        ASSERT_EQ(static_cast<int>(children.size()), node.shownCount());
        for (std::size_t row = 0; row < children.size(); ++row) {
            ASSERT_EQ(children[row], node.children()[row]);
            expectSame(*children[row]);
        }
    }

    TreeModel& model_;
    std::map<const TreeNode*, std::vector<TreeNode*>> known_;
    TreeNode* changing_ = nullptr;
    int first_ = 0;
    int last_ = 0;
    int insertions_ = 0;
};

/// A model that is edited at random, beside the plainest account of what it must hold.
class EditedTree {
 public:
    explicit EditedTree(unsigned seed) : random_(seed) { model_.setListener(&mirror_); }

    void edit() {
        switch (below(14)) {
            case 0:
                return model_.suspendRedraw();
            case 1:
            case 2:
                return model_.resumeRedraw();
            case 3:
                return model_.sortChildren(anyNode(true));
            case 4:
                return live_.empty() ? void() : model_.setText(anyNode(false), anyText());
            case 5:
                return setKey();
            case 6:
                return live_.empty() ? void() : remove(anyNode(false));
            case 7:
                return below(4) == 0 ? removeChildren(anyNode(true)) : void();
            case 8:
                return below(40) == 0 ? clear() : void();
            default:
                live_.push_back(&model_.add(anyNode(true), anyText()));
        }
    }

    void expectSound() {
        mirror_.expectInStep();
        expectRows(model_.root());
        ASSERT_EQ(model_.size(), live_.size());
        TreeNode* next = model_.firstByIndex();
        for (const TreeNode* node : live_) {
            ASSERT_EQ(next, node) << "the index order is not that of insertion";
            ASSERT_EQ(node->key().empty() ? node : model_.find(node->key()), node);
            next = model_.nextByIndex(*node);
        }
        ASSERT_EQ(next, nullptr);
        for (const auto& [key, node] : keys_)
            ASSERT_EQ(model_.find(key), node);
    }
    /// Nothing is kept back any more.
    void expectAllShown() {
        model_.resumeRedraw();
        for (const TreeNode* node : live_)
            ASSERT_TRUE(mirror_.knows(*node));
    }

 private:
    std::size_t below(std::size_t count) { return random_() % count; }
    std::string anyText() { return std::to_string(below(50)); }
    TreeNode& anyNode(bool orRoot) {
        const std::size_t at = below(live_.size() + (orRoot ? 1 : 0));
        return at == live_.size() ? model_.root() : *live_[at];
    }

    void setKey() {
        if (live_.empty())
            return;
        TreeNode& node = anyNode(false);
        const std::string key = below(5) == 0 ? std::string() : anyText();
        const auto owner = keys_.find(key);
        const bool taken = owner != keys_.end() && owner->second != &node;
        EXPECT_EQ(model_.setKey(node, key), !taken);
        if (taken)
            return;
        std::erase_if(keys_, [&](const auto& entry) { return entry.second == &node; });
        if (!key.empty())
            keys_[key] = &node;
        EXPECT_EQ(node.key(), key);
    }
    void remove(TreeNode& node) {
        forgetBelow(node);
        forgetNode(node);
        model_.remove(node);
    }
    void removeChildren(TreeNode& node) {
        forgetBelow(node);
        model_.removeChildren(node);
        EXPECT_TRUE(node.children().empty());
    }
    void clear() {
        live_.clear();
        keys_.clear();
        model_.clear();
    }
    void forgetNode(TreeNode& node) {
        std::erase(live_, &node);
        std::erase_if(keys_, [&](const auto& entry) { return entry.second == &node; });
    }
    void forgetBelow(TreeNode& node) {
        for (TreeNode* child : node.children()) {
            forgetBelow(*child);
            forgetNode(*child);
        }
    }
    void expectRows(const TreeNode& node) {
        for (std::size_t row = 0; row < node.children().size(); ++row) {
            const TreeNode& child = *node.children()[row];
            ASSERT_EQ(child.row(), static_cast<int>(row));
            ASSERT_EQ(child.parent(), &node);
            ASSERT_EQ(child.isTopLevel(), &node == &model_.root());
            expectRows(child);
        }
    }

    PlainLanguage language_;
    TreeModel model_{language_};
    Mirror mirror_{model_};
    std::mt19937 random_;
    std::vector<TreeNode*> live_;
    std::map<std::string, TreeNode*> keys_;
};

TEST(TreeModel, StaysSoundAndInStepWithTheNativeTreeUnderRandomEdits) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        EditedTree tree(seed);
        for (int step = 0; step < 250; ++step) {
            tree.edit();
            tree.expectSound();
            ASSERT_FALSE(testing::Test::HasFailure()) << "step " << step;
        }
        tree.expectAllShown();
    }
}

TEST(TreeModel, SortsOnRequestOnlyAndKeepsTheOrderOfEquals) {
    const PlainLanguage language;
    TreeModel model(language);
    TreeNode& first = model.add(model.root(), "b");
    TreeNode& second = model.add(model.root(), "b");
    TreeNode& third = model.add(model.root(), "a");
    model.add(first, "z");
    model.add(first, "y");
    model.sortChildren(model.root());
    EXPECT_EQ(model.root().children(), (std::vector<TreeNode*>{&third, &first, &second}));
    EXPECT_EQ(first.children()[0]->text(), "z") << "a level that was not asked for";
    model.setText(third, "c");
    EXPECT_EQ(third.row(), 0);
    model.sortChildren(model.root());
    EXPECT_EQ(third.row(), 2);
}

TEST(TreeModel, AnnouncesWhatWasAddedWhileSuspendedInOneStep) {
    const PlainLanguage language;
    TreeModel model(language);
    Mirror mirror(model);
    model.setListener(&mirror);
    model.suspendRedraw();
    for (int i = 0; i < 1000; ++i)
        model.add(model.add(model.root()));
    EXPECT_EQ(mirror.insertions(), 0);
    model.resumeRedraw();
    EXPECT_EQ(mirror.insertions(), 1);
    mirror.expectInStep();
}

}  // namespace

}  // namespace pelk
