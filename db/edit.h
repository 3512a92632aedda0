#pragma once
// One change of a document that can be reverted and repeated any number of times, in the order of a
// stack. Each edit needs memory in proportion to what it changed.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "db/content.h"

namespace pelk {

/// An attribute that has another value.
struct AttributeEdit {
    XmlElement element;
    /// A literal.
    const char* name;
    /// The value that the attribute does not have now; nothing when it is then missing.
    std::optional<std::string> other;

    void toggle(Content& content);
};

/// An element that was added or removed.
class ElementEdit {
 public:
    /// The element is in the document.
    ElementEdit(const Content& content, XmlElement element)
        : document_(content.document), element_(std::move(element)) {}
    ElementEdit(ElementEdit&& other) noexcept = default;
    ElementEdit& operator=(ElementEdit&& other) noexcept = default;
    /// Frees an element that is not in the document.
    ~ElementEdit();

    /// Takes the element out of the document. The caller updates the indexes.
    void detach();
    void toggle(Content& content);

 private:
    std::shared_ptr<XmlDocument> document_;
    XmlElement element_;
    /// The place to which the element returns; nothing while it is in the document.
    std::optional<XmlPlace> place_;
};

/// A whole content that was replaced.
struct ContentEdit {
    /// The content that is not the current one now.
    std::unique_ptr<Content> other;

    void toggle(Content& content);
};

/// A change of something that is kept beside the document.
struct OutsideEdit {
    /// Makes the change, and reverts it when it is called again. Does not throw.
    std::function<void()> swap;

    void toggle(Content& /*content*/) { swap(); }
};

/// `toggle` reverts an edit that stands, and repeats one that is reverted. When it throws, nothing
/// has changed.
using Edit = std::variant<AttributeEdit, ElementEdit, ContentEdit, OutsideEdit>;

}  // namespace pelk
