#pragma once
// The content of a tree control: nodes with keys, tags, text, colour and image, their order, and
// what of it the native control has been told. Written once, so that no two toolkits disagree.
//
// Invariants:
// - Each node but the root has a parent, and stands at `row()` among the parent's children.
// - Keys are unique; an empty key is no key.
// - The index order of the nodes is the order in which they were added, whatever the rows.
// - The listener knows of the first `shownCount()` children of each node it knows of. The rest
//   were added while redraw was suspended and are announced, in one step, when it resumes.

#include <cstdint>
#include <list>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "platform/language.h"

// GCC says by a macro that it checks addresses, clang by a feature.
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

/// What a form attaches to a node: nothing, a contact's id, or an address.
using TreeTag = std::variant<std::monostate, int, std::string>;

class TreeNode {
 public:
    const std::string& text() const { return text_; }
    const std::string& key() const { return key_; }
    const TreeTag& tag() const { return tag_; }
    TreeImage image() const { return image_; }
    /// Nothing stands for the toolkit's own text colour.
    const std::optional<Color>& color() const { return color_; }

    /// The model's root for a top-level node; null for the root itself.
    TreeNode* parent() const { return parent_; }
    bool isTopLevel() const { return parent_ != nullptr && parent_->parent_ == nullptr; }
    const std::vector<TreeNode*>& children() const { return children_; }
    /// The position among the parent's children, from 0.
    int row() const { return row_; }
    /// How many of the children the native tree knows of, counted from row 0.
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

/// What the native tree hears of. Each pair brackets the change: before the first call the model
/// is as it was, between the two only the count, order or absence of the rows named differs.
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
    /// The node is about to go away, which the native tree may never have heard of; not called
    /// when all nodes go.
    virtual void forgotten(const TreeNode&) {}
    /// Nothing needs to be painted until redraw is resumed.
    virtual void redrawSuspended() {}
    virtual void redrawResumed() {}
};

class TreeModel {
 public:
    /// The language must outlive the model.
    explicit TreeModel(const Language& language);
    TreeModel(const TreeModel&) = delete;
    TreeModel& operator=(const TreeModel&) = delete;

    /// One listener at most; null for none.
    void setListener(TreeListener* listener) { listener_ = listener; }

    /// The invisible parent of the top-level nodes.
    TreeNode& root() { return root_; }
    const TreeNode& root() const { return root_; }
    /// The number of nodes, without the root.
    std::size_t size() const { return nodes_.size(); }

    /// Adds a node behind the last child of `parent`; sorting is a step of its own.
    TreeNode& add(TreeNode& parent, std::string text = {});
    /// Removes the node with all below it.
    void remove(TreeNode& node);
    /// Removes all that stands below the node.
    void removeChildren(TreeNode& node);
    /// Removes all nodes.
    void clear();

    void setText(TreeNode& node, std::string text);
    void setTag(TreeNode& node, TreeTag tag) { node.tag_ = std::move(tag); }
    void setImage(TreeNode& node, TreeImage image);
    void setColor(TreeNode& node, Color color);
    /// Gives the node the toolkit's own text colour again.
    void clearColor(TreeNode& node);
    /// Returns false, with the node's key unchanged, when another node has that key.
    bool setKey(TreeNode& node, std::string key);

    /// Puts the children in alphabetical order of their texts. Children that are added or renamed
    /// later stay where they are until it is called again.
    void sortChildren(TreeNode& node);

    /// The node with that key; null when there is none.
    TreeNode* find(std::string_view key) const;

    /// The nodes in index order: the first, and the one that was added next; null at the end.
    TreeNode* firstByIndex();
    TreeNode* nextByIndex(const TreeNode& node);

    /// Until redraw is resumed, the native tree does not hear of nodes that are added.
    void suspendRedraw();
    void resumeRedraw();

 private:
    bool isShown(const TreeNode& node) const;
    void announce(TreeNode& parent);
    void forget(TreeNode& node);
    void paint(TreeNode& node, const std::optional<Color>& color);
    void removeRows(TreeNode& parent, std::size_t first, std::size_t count);

    const Language& language_;
    TreeListener* listener_ = nullptr;
    TreeNode root_;
    /// Keeps the nodes side by side, so that many are added, walked and cleared quickly. Where the
    /// addresses are checked each node is allocated by itself, or no use after free would show.
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
