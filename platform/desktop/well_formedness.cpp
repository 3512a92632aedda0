#include "platform/desktop/well_formedness.h"

#include <algorithm>
#include <cstddef>
#include <pugixml.hpp>
#include <vector>

#include "platform/utf8.h"
#include "platform/xml.h"
#include "platform/xml_markup.h"

namespace pelk {
namespace {

/// Whether the text, which starts with "&", starts with a reference.
bool beginsWithReference(std::string_view text) {
    constexpr std::size_t longest = 12;
    const std::size_t end = text.substr(0, longest).find(';');
    return end != std::string_view::npos && referencedCharacter(text.substr(1, end - 1));
}

/// Whether every "&" begins a reference, even where it need not. This quick check passes for nearly
/// all documents.
bool holdsReferencesOnly(std::string_view text) {
    for (auto at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1))
        if (!beginsWithReference(text.substr(at)))
            return false;
    return true;
}

/// Whether an "&" is not part of a reference where XML requires one.
bool hasStrayReference(std::string_view text) {
    while (!text.empty()) {
        const Markup markup = takeMarkup(text);
        const bool isPlain =
            markup.kind == MarkupKind::CDataSection || markup.kind == MarkupKind::Misc;
        if (!isPlain && !holdsReferencesOnly(markup.text))
            return true;
    }
    return false;
}

/// Finds the first element that is nested too deeply or repeats an attribute.
class ElementFault : public pugi::xml_tree_walker {
 public:
    bool begin(pugi::xml_node& node) override { return for_each(node); }
    bool for_each(pugi::xml_node& node) override {
        // pugixml gives the root the depth -1.
        if (node.type() == pugi::node_element && depth() + 2 > kDeepestNesting)
            found = nestingFault();
        else if (hasDoubledAttribute(node))
            found = "a repeated attribute";
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

    std::vector<std::string_view> names_;
};

}  // namespace

std::string wellFormednessError(std::string_view text) {
    if (!isXmlText(text))
        return "bytes that are not UTF-8 text";
    if (!holdsReferencesOnly(text) && hasStrayReference(text))
        return "a reference to an unknown character";
    return {};
}

std::string wellFormednessError(const pugi::xml_document& document) {
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
    ElementFault fault;
    document.document_element().traverse(fault);
    return fault.found;
}

}  // namespace pelk
