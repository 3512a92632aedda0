#pragma once
// The content of a tree control: nodes with keys, tags, text, colour, image and order, and which of
// them the native control knows. Both toolkits share this one implementation.
//
// Invariants:
// - Each node but the root has a parent and is child number `row()` of it.
// - Keys are unique; an empty key is no key.
// - The index order of nodes is the order in which they were added, not that of the rows.
// - The listener knows the first `shownCount()` children of each node it knows. The others were
//   added while redraw was suspended; resuming it announces them in one step.

#include <cstdint>
#include <functional>
#include <list>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "platform/language.h"

// GCC defines a macro when it checks addresses; clang has a feature test.
#if defined(__SANITIZE_ADDRESS__)
#define PELK_ADDRESSES_CHECKED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define PELK_ADDRESSES_CHECKED
#endif
#endif

namespace pelk {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

/// The images of the tree, in the order of the image list's keys: "contact" and "many", then the
/// classes of a relation: "one" (strong), "two" (medium), "three" (weak).
enum class TreeImage { None, Contact, Many, One, Two, Three };

/// The data that a form attaches to a node: nothing, a contact's id, or an address.
using TreeTag = std::variant<std::monostate, int, std::string>;

class TreeNode {
 public:
    const std::string& text() const { return text_; }
    const std::string& key() const { return key_; }
    const TreeTag& tag() const { return tag_; }
    TreeImage image() const { return image_; }
    /// Nothing means the toolkit's own text colour.
    const std::optional<Color>& color() const { return color_; }

    /// Returns the model's root for a top-level node, and null for the root.
    TreeNode* parent() const { return parent_; }
    bool isTopLevel() const { return parent_ != nullptr && parent_->parent_ == nullptr; }
    const std::vector<TreeNode*>& children() const { return children_; }
    /// Returns the position among the parent's children, from 0.
    int row() const { return row_; }
    /// Returns how many of the children, counted from row 0, the native tree knows.
    int shownCount() const { return shownCount_; }

 private:
    friend class TreeModel;

    std::string text_;
    std::string key_;
    TreeTag tag_;
    TreeImage image_ = TreeImage::None;
    std::optional<Color> color_;
    TreeNode* parent_ = nullptr;
    std::vector<TreeNode*> children_;
    int row_ = 0;
    int shownCount_ = 0;
    std::pmr::list<TreeNode>::iterator self_;
};

/// Tells the native tree about changes. Each pair of calls brackets a change: before the first call
/// nothing has changed; between the two only the number, order or absence of the named rows has.
class TreeListener {
 public:
    virtual ~TreeListener() = default;
    virtual void beforeInsert(TreeNode& parent, int firstRow, int lastRow) = 0;
    virtual void afterInsert() = 0;
    virtual void beforeRemove(TreeNode& parent, int firstRow, int lastRow) = 0;
    virtual void afterRemove() = 0;
    virtual void beforeReorder(TreeNode& parent) = 0;
    virtual void afterReorder(TreeNode& parent) = 0;
    virtual void beforeClear() = 0;
    virtual void afterClear() = 0;
    virtual void changed(TreeNode& node) = 0;
    /// Called before a node is destroyed, even one that the native tree does not know. Not called
    /// by `clear`.
    virtual void forgotten(const TreeNode&) {}
    /// Nothing needs painting until redraw resumes.
    virtual void redrawSuspended() {}
    virtual void redrawResumed() {}
};

class TreeModel {
 public:
    /// The language must outlive the model.
    explicit TreeModel(const Language& language);
    TreeModel(const TreeModel&) = delete;
    TreeModel& operator=(const TreeModel&) = delete;

    /// There is at most one listener; null removes it.
    void setListener(TreeListener* listener) { listener_ = listener; }

    /// The invisible parent of the top-level nodes.
    TreeNode& root() { return root_; }
    const TreeNode& root() const { return root_; }
    /// Returns the number of nodes without the root.
    std::size_t size() const { return nodes_.size(); }

    /// Adds a node as the last child of `parent`, without sorting.
    TreeNode& add(TreeNode& parent, std::string text = {});
    /// Removes the node and its descendants.
    void remove(TreeNode& node);
    /// Removes the node's descendants.
    void removeChildren(TreeNode& node);
    void clear();

    void setText(TreeNode& node, std::string text);
    void setTag(TreeNode& node, TreeTag tag) { node.tag_ = std::move(tag); }
    void setImage(TreeNode& node, TreeImage image);
    void setColor(TreeNode& node, Color color);
    /// Restores the toolkit's own text colour.
    void clearColor(TreeNode& node);
    /// Returns false and keeps the node's key when another node has that key.
    bool setKey(TreeNode& node, std::string key);

    /// Sorts the children alphabetically by text. Children added or renamed later stay where they
    /// are until the next call.
    void sortChildren(TreeNode& node);
    /// Sorts the children by descending rank, those of equal rank alphabetically.
    void sortChildren(TreeNode& node, const std::function<std::int64_t(const TreeNode&)>& rankOf);

    /// Returns the node with that key, or null.
    TreeNode* find(std::string_view key) const;

    /// The nodes in index order: the first one, and the one added next. Null at the end.
    TreeNode* firstByIndex();
    TreeNode* nextByIndex(const TreeNode& node);

    /// Until redraw resumes, the native tree is not told of added nodes.
    void suspendRedraw();
    void resumeRedraw();

 private:
    std::vector<TreeNode*> alphabetical(const std::vector<TreeNode*>& nodes) const;
    void reorder(TreeNode& node, std::vector<TreeNode*> sorted);
    bool isShown(const TreeNode& node) const;
    void announce(TreeNode& parent);
    void forget(TreeNode& node);
    void paint(TreeNode& node, const std::optional<Color>& color);
    void removeRows(TreeNode& parent, std::size_t first, std::size_t count);

    const Language& language_;
    TreeListener* listener_ = nullptr;
    TreeNode root_;
    /// The memory pool keeps nodes close together, so that many are added, walked and cleared
    /// quickly. Address checkers need an allocation per node to find a use after free.
#ifdef PELK_ADDRESSES_CHECKED
    std::pmr::unsynchronized_pool_resource memory_{{.largest_required_pool_block = 1}};
#else
    std::pmr::unsynchronized_pool_resource memory_;
#endif
    std::pmr::list<TreeNode> nodes_{&memory_};
    std::pmr::unordered_map<std::string_view, TreeNode*> byKey_{&memory_};
    bool suspended_ = false;
    std::vector<TreeNode*> unannounced_;
};

}  // namespace pelk
