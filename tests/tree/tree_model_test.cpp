#include "platform/tree_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <set>

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
    std::string folded(std::string_view) const override { return {}; }
};

/// A native tree that knows the nodes it has been told of, and checks that it is told of no others.
class Mirror : public TreeListener {
 public:
    explicit Mirror(TreeModel& model) : model_(model) { lookAnew(); }

    void expectInStep() {
        const std::set<const TreeNode*> told = known_;
        lookAnew();
        EXPECT_EQ(told, known_);
    }
    void beforeInsert(TreeNode& parent, int firstRow, int) override {
        changed(parent);
        EXPECT_EQ(parent.shownCount(), firstRow) << "the change has been made already";
    }
    void afterInsert() override { lookAnew(); }
    void beforeRemove(TreeNode& parent, int, int lastRow) override {
        changed(parent);
        EXPECT_LT(lastRow, parent.shownCount());
    }
    void afterRemove() override { lookAnew(); }
    void beforeReorder(TreeNode& parent) override { changed(parent); }
    void afterReorder(TreeNode&) override {}
    void beforeClear() override {}
    void afterClear() override { lookAnew(); }
    void changed(TreeNode& node) override { EXPECT_TRUE(known_.contains(&node)); }

 private:
    void lookAnew() {
        known_.clear();
        look(model_.root());
    }
    void look(const TreeNode& node) {
        known_.insert(&node);
        for (int row = 0; row < node.shownCount(); ++row)
            look(*node.children()[static_cast<std::size_t>(row)]);
    }

    TreeModel& model_;
    std::set<const TreeNode*> known_;
};

/// A model that is edited at random, and a simple reference implementation of its content.
class EditedTree {
 public:
    explicit EditedTree(unsigned seed) : random_(seed) { model_.setListener(&mirror_); }

    void edit() {
        const std::size_t act = below(14);
        if (act == 0)
            model_.suspendRedraw();
        else if (act < 3)
            model_.resumeRedraw();
        else if (act == 3)
            model_.sortChildren(anyNode(true));
        else if (act == 7 && below(4) == 0)
            remove(anyNode(true), false);
        else if (act == 8 && below(40) == 0)
            clear();
        else if (act > 8)
            live_.push_back(&model_.add(anyNode(true), anyText()));
        else if (!live_.empty() && act == 4)
            model_.setText(anyNode(false), anyText());
        else if (!live_.empty() && act == 5)
            setKey(anyNode(false), below(5) == 0 ? "" : anyText());
        else if (!live_.empty() && act == 6)
            remove(anyNode(false), true);
    }

    void expectSound() {
        mirror_.expectInStep();
        ASSERT_EQ(model_.size(), live_.size());
        std::size_t children = model_.root().children().size();
        TreeNode* next = model_.firstByIndex();
        for (const TreeNode* node : live_) {
            ASSERT_EQ(next, node) << "the index order is not that of insertion";
            ASSERT_EQ(node->parent()->children().at(static_cast<std::size_t>(node->row())), node);
            ASSERT_EQ(node->isTopLevel(), node->parent() == &model_.root());
            children += node->children().size();
            next = model_.nextByIndex(*node);
        }
        ASSERT_EQ(next, nullptr);
        ASSERT_EQ(children, live_.size());
        for (int key = 0; key < kTexts; ++key)
            ASSERT_EQ(model_.find(std::to_string(key)), ownerOf(std::to_string(key)));
    }

 private:
    static constexpr int kTexts = 50;

    std::size_t below(std::size_t count) { return random_() % count; }
    std::string anyText() { return std::to_string(below(kTexts)); }
    TreeNode& anyNode(bool orRoot) {
        const std::size_t at = below(live_.size() + (orRoot ? 1 : 0));
        return at == live_.size() ? model_.root() : *live_[at];
    }
    TreeNode* ownerOf(const std::string& key) {
        const auto owner = std::find_if(live_.begin(), live_.end(),
                                        [&key](TreeNode* node) { return node->key() == key; });
        return owner == live_.end() ? nullptr : *owner;
    }

    void setKey(TreeNode& node, const std::string& key) {
        const std::string before = node.key();
        TreeNode* const owner = key.empty() ? nullptr : ownerOf(key);
        const bool free = owner == nullptr || owner == &node;
        EXPECT_EQ(model_.setKey(node, key), free);
        EXPECT_EQ(node.key(), free ? key : before);
    }
    /// The node, or only what is below it.
    void remove(TreeNode& node, bool itself) {
        std::erase_if(live_, [&](TreeNode* other) {
            TreeNode* above = itself ? other : other->parent();
            while (above != nullptr && above != &node)
                above = above->parent();
            return above != nullptr;
        });
        itself ? model_.remove(node) : model_.removeChildren(node);
    }
    void clear() {
        live_.clear();
        model_.clear();
    }

    PlainLanguage language_;
    TreeModel model_{language_};
    Mirror mirror_{model_};
    std::mt19937 random_;
    std::vector<TreeNode*> live_;
};

TEST(TreeModel, StaysSoundUnderRandomEdits) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        EditedTree tree(seed);
        for (int step = 0; step < 250; ++step) {
            tree.edit();
            tree.expectSound();
            ASSERT_FALSE(testing::Test::HasFailure()) << "step " << step;
        }
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

}  // namespace

}  // namespace pelk
