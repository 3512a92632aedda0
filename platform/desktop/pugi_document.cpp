#include "platform/desktop/pugi_document.h"

#include <new>
#include <pugixml.hpp>
#include <string_view>
#include <utility>

#include "platform/desktop/well_formedness.h"

namespace pelk {
namespace {

pugi::xml_node wrap(XmlLibrary::Node node) {
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node));
}

XmlLibrary::Node unwrap(pugi::xml_node node) {
    return node.internal_object();
}

/// Returns the first element among `node` and its following siblings.
XmlLibrary::Node elementFrom(pugi::xml_node node) {
    while (node && node.type() != pugi::node_element)
        node = node.next_sibling();
    return unwrap(node);
}

/// Returns the element that holds the detached ones, which belong to no other place of the
/// document; null when there is none yet. It follows the root element, so it is not part of the
/// text.
pugi::xml_node storeOfDetached(pugi::xml_node document) {
    return wrap(elementFrom(document.first_child())).next_sibling();
}

bool isDetached(pugi::xml_node node) {
    const pugi::xml_node store = storeOfDetached(node.root());
    while (node && node != store)
        node = node.parent();
    return node && store;
}

/// The library returns null or false when it has no memory.
void requireMemory(bool given) {
    if (!given)
        throw std::bad_alloc();
}

class TextWriter : public pugi::xml_writer {
 public:
    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }
    std::string text;
};

std::string textOf(pugi::xml_node node) {
    TextWriter writer;
    node.print(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return std::move(writer.text);
}

/// Nodes live as long as their document, so there is nothing to retain or release.
class PugiLibrary : public XmlLibrary {
 public:
    void retain(Node) const override {}
    void release(Node) const override {}

    std::string name(Node node) const override { return wrap(node).name(); }

    std::optional<std::string> attribute(Node node, const char* name) const override {
        const pugi::xml_attribute attribute = wrap(node).attribute(name);
        return attribute ? std::optional<std::string>(attribute.value()) : std::nullopt;
    }

    void texts(Node node, std::span<const char* const> names,
               std::span<std::string> values) const override {
        // Each search begins where the last one ended.
        pugi::xml_attribute next;
        for (std::size_t i = 0; i < names.size(); ++i)
            values[i] = wrap(node).attribute(names[i], next).value();
    }

    void setAttribute(Node node, const char* name, const std::string& value) const override {
        pugi::xml_attribute attribute = wrap(node).attribute(name);
        if (!attribute)
            attribute = wrap(node).append_attribute(name);
        requireMemory(attribute.set_value(value.c_str()));
    }

    void removeAttribute(Node node, const char* name) const override {
        wrap(node).remove_attribute(name);
    }

    Node firstChild(Node node) const override { return elementFrom(wrap(node).first_child()); }
    Node nextSibling(Node node) const override { return elementFrom(wrap(node).next_sibling()); }

    Node appendElement(Node parent, const char* name) const override {
        const pugi::xml_node child = wrap(parent).append_child(name);
        // The library allocates the name separately.
        if (std::string_view(child.name()) != name) {
            wrap(parent).remove_child(child);
            throw std::bad_alloc();
        }
        return unwrap(child);
    }

    Node appendCopy(Node parent, Node original) const override {
        pugi::xml_node copy = wrap(parent).append_copy(wrap(original));
        // Without enough memory, the copy is incomplete.
        if (!copy || textOf(copy) != textOf(wrap(original))) {
            wrap(parent).remove_child(copy);
            throw std::bad_alloc();
        }
        return unwrap(copy);
    }

    void remove(Node node) const override { wrap(node).parent().remove_child(wrap(node)); }

    Node parent(Node node) const override { return unwrap(wrap(node).parent()); }
    Node following(Node node) const override { return unwrap(wrap(node).next_sibling()); }

    void detach(Node node) const override {
        const pugi::xml_node document = wrap(node).root();
        pugi::xml_node store = storeOfDetached(document);
        if (!store)
            store = wrap(unwrap(document)).append_child("detached");
        requireMemory(store.append_move(wrap(node)));
    }

    void insert(Node parent, Node node, Node before) const override {
        requireMemory(before != nullptr ? wrap(parent).insert_move_before(wrap(node), wrap(before))
                                        : wrap(parent).append_move(wrap(node)));
    }

    std::vector<Node> select(Node context, const std::string& query) const override {
        try {
            pugi::xpath_node_set found = wrap(context).select_nodes(query.c_str());
            found.sort();
            std::vector<Node> nodes;
            for (const pugi::xpath_node& each : found)
                if (each.node() && !isDetached(each.node()))
                    nodes.push_back(unwrap(each.node()));
            return nodes;
        } catch (const pugi::xpath_exception&) {
            throw MalformedQuery(query);
        }
    }
};

const PugiLibrary& library() {
    static const PugiLibrary theLibrary;
    return theLibrary;
}

class PugiDocument : public XmlDocument {
 public:
    bool loadXml(std::string text) override {
        document_.reset();
        text_ = std::move(text);
        error_ = wellFormednessError(text_);
        if (error_.empty()) {
            constexpr unsigned options =
                pugi::parse_default | pugi::parse_fragment | pugi::parse_doctype;
            const pugi::xml_parse_result result = document_.load_buffer_inplace(
                text_.data(), text_.size(), options, pugi::encoding_utf8);
            requireMemory(result.status != pugi::status_out_of_memory);
            if (result.status == pugi::status_internal_error)
                throw Error("The XML library failed.");
            error_ = result ? wellFormednessError(document_) : result.description();
        }
        if (!error_.empty())
            document_.reset();
        return error_.empty();
    }

    std::string parseError() const override { return error_; }

    std::string xml() const override {
        TextWriter writer;
        // The text is about as long as the one that was loaded.
        writer.text.reserve(text_.size() + text_.size() / 8);
        writer.text = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>";
        document_.document_element().print(writer, "", pugi::format_raw, pugi::encoding_utf8);
        return std::move(writer.text);
    }

    XmlElement root() const override { return {library(), unwrap(document_.document_element())}; }

 private:
    /// The loaded text. The library has changed it, and its nodes point into it.
    std::string text_;
    pugi::xml_document document_;
    std::string error_;
};

}  // namespace

std::unique_ptr<XmlDocument> createPugiDocument() {
    return std::make_unique<PugiDocument>();
}

}  // namespace pelk
