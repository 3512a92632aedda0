#pragma once
// The XML document model of the database. A platform supplies an `XmlLibrary`
// and an `XmlDocument`; the rest of the program sees elements only, never a library's nodes.

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/error.h"

namespace pelk {

/// The error for a query that the document model cannot parse, for example because a value in it
/// contains an apostrophe.
class MalformedQuery : public Error {
 public:
    explicit MalformedQuery(const std::string& query) : Error("Malformed query: " + query) {}
};

/// The maximum nesting depth of elements, which is that of MSXML 6.0; the root is at level 1. So a
/// function may recurse once for each level.
inline constexpr int kDeepestNesting = 256;

/// Returns the error text for a document with deeper nesting.
inline std::string nestingFault() {
    return "elements nested deeper than " + std::to_string(kDeepestNesting) + " levels";
}

/// The operations of an XML library on elements. A node is the library's own pointer, and is not
/// null unless the comment says so. All text is UTF-8. Throws `Error` when the library fails, and
/// `std::bad_alloc`. Only one thread at a time may use a document and its elements.
class XmlLibrary {
 public:
    using Node = void*;

    virtual ~XmlLibrary() = default;

    /// Each node that a function returns is retained; the receiver releases it.
    virtual void retain(Node node) const = 0;
    virtual void release(Node node) const = 0;

    virtual std::string name(Node node) const = 0;
    virtual std::optional<std::string> attribute(Node node, const char* name) const = 0;
    /// Fills `values` with the values of the named attributes; empty text for a missing one.
    virtual void texts(Node node, std::span<const char* const> names,
                       std::span<std::string> values) const {
        for (std::size_t i = 0; i < names.size(); ++i)
            values[i] = attribute(node, names[i]).value_or(std::string());
    }
    virtual void setAttribute(Node node, const char* name, const std::string& value) const = 0;
    virtual void removeAttribute(Node node, const char* name) const = 0;
    /// The following two functions return elements only; null when there is none.
    virtual Node firstChild(Node node) const = 0;
    virtual Node nextSibling(Node node) const = 0;
    virtual Node appendElement(Node parent, const char* name) const = 0;
    virtual Node appendCopy(Node parent, Node original) const = 0;
    /// Also frees a detached element.
    virtual void remove(Node node) const = 0;
    virtual Node parent(Node node) const = 0;
    /// Returns the next node, which may be text; null after the last one.
    virtual Node following(Node node) const = 0;
    virtual void detach(Node node) const = 0;
    /// Inserts a detached element before a child of `parent`; after all children if that is null.
    virtual void insert(Node parent, Node node, Node before) const = 0;
    virtual std::vector<Node> select(Node context, const std::string& query) const = 0;
};

class XmlPlace;

/// A reference to one element, or to none. Copies refer to the same element. An element that was
/// removed from its document, or whose document was loaded again, must not be used.
class XmlElement {
 public:
    XmlElement() = default;
    /// Takes over a retained node, which may be null.
    XmlElement(const XmlLibrary& library, XmlLibrary::Node node)
        : library_(&library), node_(node) {}
    XmlElement(const XmlElement& other) : library_(other.library_), node_(other.node_) {
        if (node_ != nullptr)
            library_->retain(node_);
    }
    XmlElement(XmlElement&& other) noexcept
        : library_(other.library_), node_(std::exchange(other.node_, nullptr)) {}
    XmlElement& operator=(XmlElement other) noexcept {
        std::swap(library_, other.library_);
        std::swap(node_, other.node_);
        return *this;
    }
    ~XmlElement() {
        if (node_ != nullptr)
            library_->release(node_);
    }

    explicit operator bool() const { return node_ != nullptr; }

    std::string name() const { return library_->name(node_); }
    /// The attribute's value; nothing when the element has no such attribute.
    std::optional<std::string> attribute(const char* name) const {
        return library_->attribute(node_, name);
    }
    /// The attribute's value, empty when there is none.
    std::string text(const char* name) const { return attribute(name).value_or(std::string()); }
    /// Returns several attributes at once; fastest in the order of the document.
    template <typename... Names>
    std::array<std::string, sizeof...(Names)> texts(Names... names) const {
        const std::array<const char*, sizeof...(Names)> all{names...};
        std::array<std::string, sizeof...(Names)> values;
        library_->texts(node_, all, values);
        return values;
    }
    /// Changes the attribute in place, or appends it.
    void setAttribute(const char* name, const std::string& value) const {
        library_->setAttribute(node_, name, value);
    }
    /// Does nothing when there is no such attribute.
    void removeAttribute(const char* name) const { library_->removeAttribute(node_, name); }

    /// The neighbouring element; an empty reference when there is none. Skips text.
    XmlElement firstChild() const { return {*library_, library_->firstChild(node_)}; }
    XmlElement nextSibling() const { return {*library_, library_->nextSibling(node_)}; }

    /// Creates an element as the last child of this one.
    XmlElement appendElement(const char* name) const {
        return {*library_, library_->appendElement(node_, name)};
    }
    /// Appends a copy of an element, with all below it, as the last child of this one. The original
    /// may belong to another document of the same library.
    XmlElement appendCopy(const XmlElement& original) const {
        return {*library_, library_->appendCopy(node_, original.node_)};
    }
    /// Removes this element and everything below it from the document.
    void remove() const { library_->remove(node_); }

    /// Returns where the element is. The place is valid while its neighbours are the same.
    XmlPlace place() const;
    /// Removes this element from the document without invalidating it or the elements below it, so
    /// that `insertAt` can put it back and `remove` frees it. Until then it has no neighbours, and
    /// `select` does not find it. Requires: it is not the root.
    void detach() const { library_->detach(node_); }
    /// Puts a detached element at a place in its document.
    void insertAt(const XmlPlace& place) const;

    /// The elements that an XPath 1.0 query selects, in document order. A query that starts with
    /// "/" starts at the document, any other at this element. Throws `MalformedQuery`.
    std::vector<XmlElement> select(const std::string& query) const {
        std::vector<XmlElement> elements;
        for (XmlLibrary::Node node : library_->select(node_, query))
            elements.emplace_back(*library_, node);
        return elements;
    }

 private:
    const XmlLibrary* library_ = nullptr;
    XmlLibrary::Node node_ = nullptr;
};

/// A place between two nodes of a document.
class XmlPlace {
 public:
    XmlPlace() = default;

 private:
    friend class XmlElement;
    XmlPlace(XmlElement parent, XmlElement next)
        : parent_(std::move(parent)), next_(std::move(next)) {}

    XmlElement parent_;
    /// May be text.
    XmlElement next_;
};

inline XmlPlace XmlElement::place() const {
    return {{*library_, library_->parent(node_)}, {*library_, library_->following(node_)}};
}

inline void XmlElement::insertAt(const XmlPlace& place) const {
    library_->insert(place.parent_.node_, node_, place.next_.node_);
}

/// One XML document in memory.
class XmlDocument {
 public:
    virtual ~XmlDocument() = default;

    /// Replaces the content by the document in `text` (UTF-8, whatever encoding its declaration
    /// names). The library may keep `text` and parse it in place. Returns false, with the document
    /// empty and `parseError` set, when the text is not one well-formed document, or nests deeper
    /// than `kDeepestNesting`. External entities and document types are never followed. Throws
    /// `Error` when the library fails, and `std::bad_alloc`; neither says anything about the text.
    virtual bool loadXml(std::string text) = 0;
    /// Returns the error of the last `loadXml` in a few words; empty when it succeeded.
    virtual std::string parseError() const = 0;

    /// Returns the whole document as UTF-8 in the canonical form of all platforms: the declaration
    /// `<?xml version="1.0" encoding="UTF-16"?>`, no white space between elements, attributes in
    /// order within double quotes, `<name/>` for an element without children, and in attributes
    /// the characters & < " escaped by name.
    virtual std::string xml() const = 0;

    /// The root element; an empty reference when the document is empty.
    virtual XmlElement root() const = 0;
};

}  // namespace pelk
