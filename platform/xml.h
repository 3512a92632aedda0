#pragma once
// The XML document model in which the database lives. A platform supplies an `XmlLibrary`
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

/// A query that the document model cannot read, for example one into which a value with an
/// apostrophe was spliced.
class MalformedQuery : public Error {
 public:
    explicit MalformedQuery(const std::string& query) : Error("Malformed query: " + query) {}
};

/// How deep the elements of a document may stand, the root being the first level: as deep as MSXML
/// 6.0 takes. What walks down a document may call itself once for each level.
inline constexpr int kDeepestNesting = 256;

/// What is wrong with a document that nests deeper.
inline std::string nestingFault() {
    return "elements nested deeper than " + std::to_string(kDeepestNesting) + " levels";
}

/// What an XML library supplies for the elements of its documents. A node is the library's own
/// pointer; none is null unless the comment says so. All text is UTF-8. Throws `Error` when the
/// library fails, and `std::bad_alloc`.
class XmlLibrary {
 public:
    using Node = void*;

    virtual ~XmlLibrary() = default;

    /// Each node that is handed out has been retained for its receiver, who releases it.
    virtual void retain(Node node) const = 0;
    virtual void release(Node node) const = 0;

    virtual std::string name(Node node) const = 0;
    virtual std::optional<std::string> attribute(Node node, const char* name) const = 0;
    /// Fills `values` with those of the attributes named, and with empty text where there is none.
    virtual void texts(Node node, std::span<const char* const> names,
                       std::span<std::string> values) const {
        for (std::size_t i = 0; i < names.size(); ++i)
            values[i] = attribute(node, names[i]).value_or(std::string());
    }
    virtual void setAttribute(Node node, const char* name, const std::string& value) const = 0;
    /// The neighbours below are elements; null when there is none.
    virtual Node firstChild(Node node) const = 0;
    virtual Node nextSibling(Node node) const = 0;
    virtual Node appendElement(Node parent, const char* name) const = 0;
    virtual Node appendCopy(Node parent, Node original) const = 0;
    virtual void remove(Node node) const = 0;
    virtual std::vector<Node> select(Node context, const std::string& query) const = 0;
};

/// A reference to one element, or to none. Copies refer to the same element. An element that was
/// removed from its document, or whose document was loaded anew, must not be used any more.
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
    /// The same for several attributes at once: quickest in the order in which they stand.
    template <typename... Names>
    std::array<std::string, sizeof...(Names)> texts(Names... names) const {
        const std::array<const char*, sizeof...(Names)> all{names...};
        std::array<std::string, sizeof...(Names)> values;
        library_->texts(node_, all, values);
        return values;
    }
    /// Changes the attribute in place, or adds it behind those that are there.
    void setAttribute(const char* name, const std::string& value) const {
        library_->setAttribute(node_, name, value);
    }

    /// The neighbouring element; an empty reference when there is none. Text is passed over.
    XmlElement firstChild() const { return {*library_, library_->firstChild(node_)}; }
    XmlElement nextSibling() const { return {*library_, library_->nextSibling(node_)}; }

    /// Creates an element as the last child of this one.
    XmlElement appendElement(const char* name) const {
        return {*library_, library_->appendElement(node_, name)};
    }
    /// Appends a copy of an element, with all below it, as the last child of this one. The original
    /// may stand in another document of the same kind.
    XmlElement appendCopy(const XmlElement& original) const {
        return {*library_, library_->appendCopy(node_, original.node_)};
    }
    /// Takes this element with all below it out of the document.
    void remove() const { library_->remove(node_); }

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

/// One XML document in memory.
class XmlDocument {
 public:
    virtual ~XmlDocument() = default;

    /// Replaces the content by the document in `text` (UTF-8, whatever encoding its declaration
    /// names), which a library may keep and read in its place. Returns false, with the document
    /// empty and `parseError` set, when the text is not one well-formed document, or nests deeper
    /// than `kDeepestNesting`. External entities and document types are never followed. Throws
    /// `Error` when the library fails, and `std::bad_alloc`: neither says anything of the text.
    virtual bool loadXml(std::string text) = 0;
    /// What the last `loadXml` stumbled on, in a few words; empty when it did not fail.
    virtual std::string parseError() const = 0;

    /// The whole document as UTF-8, in the one form that every platform writes: the declaration
    /// `<?xml version="1.0" encoding="UTF-16"?>`, no white space between elements, attributes in
    /// order within double quotes, `<name/>` for an element without children, and in attributes
    /// the characters & < " escaped by name.
    virtual std::string xml() const = 0;

    /// The root element; an empty reference when the document is empty.
    virtual XmlElement root() const = 0;
};

}  // namespace pelk
