#include "platform/desktop/xml_strictness.h"

#include <algorithm>
#include <cstddef>
#include <pugixml.hpp>
#include <vector>

#include "platform/side_by_side.h"
#include "platform/utf8.h"
#include "platform/xml.h"
#include "platform/xml_markup.h"

namespace pelk {
namespace {

/// Whether the text, which begins with "&", begins with a reference.
bool beginsWithReference(std::string_view text) {
    constexpr std::size_t longest = 12;
    const std::size_t end = text.substr(0, longest).find(';');
    return end != std::string_view::npos && referencedCharacter(text.substr(1, end - 1));
}

/// Whether every "&" begins a reference, even those that would not have to: true of nearly all
/// documents, and quickly known.
bool holdsReferencesOnly(std::string_view text) {
    for (auto at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1))
        if (!beginsWithReference(text.substr(at)))
            return false;
    return true;
}

/// Whether an "&" begins no reference where it has to.
bool hasStrayReference(std::string_view text) {
    while (!text.empty()) {
        const Markup markup = takeMarkup(text);
        const bool isPlain =
            markup.kind == MarkupKind::CharacterData || markup.kind == MarkupKind::Aside;
        if (!isPlain && !holdsReferencesOnly(markup.text))
            return true;
    }
    return false;
}

/// Finds the first element with an attribute twice, or too deep, at a node or below it.
class ElementFault : public pugi::xml_tree_walker {
 public:
    /// `level` is that of the node at which the walk begins, 1 for the root.
    explicit ElementFault(int level) : level_(level) {}

    bool begin(pugi::xml_node& node) override { return for_each(node); }
    bool for_each(pugi::xml_node& node) override {
        // The node at which the walk begins has the depth -1.
        if (node.type() == pugi::node_element && level_ + depth() + 1 > kDeepestNesting)
            found = nestingFault();
        else if (hasDoubledAttribute(node))
            found = "an attribute that stands twice";
        return found.empty();
    }
    std::string found;

 private:
    bool hasDoubledAttribute(pugi::xml_node node) {
        names_.clear();
        for (auto at = node.first_attribute(); at; at = at.next_attribute())
            names_.emplace_back(at.name());
        std::sort(names_.begin(), names_.end());
        return std::adjacent_find(names_.begin(), names_.end()) != names_.end();
    }

    const int level_;
    std::vector<std::string_view> names_;
};

/// The fault of an element on the second level, or of one below it.
std::string faultBelowRoot(pugi::xml_node node) {
    ElementFault fault(2);
    node.traverse(fault);
    return fault.found;
}

/// The same for all elements of a document. Below the root of a database stand two large ones.
std::string faultOfElements(const pugi::xml_document& document) {
    pugi::xml_node root = document.document_element();
    std::string inFirst;
    std::string inRest;
    sideBySide([&] { inFirst = faultBelowRoot(root.first_child()); },
               [&] {
                   ElementFault atRoot(1);
                   atRoot.for_each(root);
                   inRest = atRoot.found;
                   for (auto at = root.first_child().next_sibling(); at && inRest.empty();
                        at = at.next_sibling())
                       inRest = faultBelowRoot(at);
               });
    return inFirst.empty() ? inRest : inFirst;
}

}  // namespace

std::string faultOfText(std::string_view text) {
    if (!isXmlText(text))
        return "bytes that are not UTF-8 text";
    if (!holdsReferencesOnly(text) && hasStrayReference(text))
        return "a reference to an unknown character";
    return {};
}

std::string faultOfDocument(const pugi::xml_document& document) {
    int roots = 0;
    for (pugi::xml_node node : document.children()) {
        if (node.type() == pugi::node_doctype)
            return "a document type";
        if (node.type() != pugi::node_element)
            return "text outside the root element";
        ++roots;
    }
    if (roots != 1)
        return std::to_string(roots) + " root elements";
    return faultOfElements(document);
}

}  // namespace pelk
