#include "platform/windows/msxml_document.h"

#include "platform/windows/com.h"
// Requires the include above.
#include <msxml2.h>

#include <algorithm>
#include <iterator>
#include <new>

#include "platform/utf8.h"
#include "platform/windows/canonical_xml.h"
#include "platform/xml_markup.h"

namespace pelk {
namespace {

/// The versions 6.0, 4.0 and 3.0, in the order in which they are tried.
constexpr CLSID kDocumentClasses[] = {
    {0x88D96A05, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}},
    {0x88D969C0, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}},
    {0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}}};
constexpr IID kDocument2 = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

void require(HRESULT result, const char* what) {
    if (result == E_OUTOFMEMORY)
        throw std::bad_alloc();
    if (FAILED(result))
        throw Error(std::string("The system's XML library failed to ") + what + ".");
}

constexpr const char* kFindNode = "find a node";

/// A node is a pointer to its element interface, which is also its node interface.
IXMLDOMElement* wrap(XmlLibrary::Node node) {
    return static_cast<IXMLDOMElement*>(node);
}

ComPtr<IXMLDOMElement> asElement(const ComPtr<IXMLDOMNode>& node) {
    return node.query<IXMLDOMElement>(IID_IXMLDOMElement);
}

bool isElement(const ComPtr<IXMLDOMNode>& node) {
    DOMNodeType type = NODE_INVALID;
    require(node->get_nodeType(&type), "tell the kind of a node");
    return type == NODE_ELEMENT;
}

/// Returns the first element among `node` and its following siblings.
XmlLibrary::Node elementFrom(ComPtr<IXMLDOMNode> node) {
    while (node && !isElement(node)) {
        ComPtr<IXMLDOMNode> next;
        require(node->get_nextSibling(next.put()), kFindNode);
        node = std::move(next);
    }
    return asElement(node).detach();
}

class MsxmlLibrary : public XmlLibrary {
 public:
    void retain(Node node) const override { wrap(node)->AddRef(); }
    void release(Node node) const override { wrap(node)->Release(); }

    std::string name(Node node) const override {
        Bstr name;
        require(wrap(node)->get_nodeName(name.put()), "name an element");
        return name.utf8();
    }

    std::optional<std::string> attribute(Node node, const char* name) const override {
        Variant value;
        const HRESULT result = wrap(node)->getAttribute(Bstr(std::string_view(name)).get(), &value);
        require(result, "read an attribute");
        if (result != S_OK || value.vt != VT_BSTR)
            return std::nullopt;
        return toUtf8({value.bstrVal, SysStringLen(value.bstrVal)});
    }

    void setAttribute(Node node, const char* name, const std::string& value) const override {
        require(wrap(node)->setAttribute(Bstr(std::string_view(name)).get(), Variant(value)),
                "change an attribute");
    }

    void removeAttribute(Node node, const char* name) const override {
        require(wrap(node)->removeAttribute(Bstr(std::string_view(name)).get()),
                "remove an attribute");
    }

    Node firstChild(Node node) const override {
        ComPtr<IXMLDOMNode> child;
        require(wrap(node)->get_firstChild(child.put()), kFindNode);
        return elementFrom(std::move(child));
    }

    Node nextSibling(Node node) const override {
        ComPtr<IXMLDOMNode> next;
        require(wrap(node)->get_nextSibling(next.put()), kFindNode);
        return elementFrom(std::move(next));
    }

    Node appendElement(Node parent, const char* name) const override {
        ComPtr<IXMLDOMDocument> document;
        ComPtr<IXMLDOMElement> element;
        ComPtr<IXMLDOMNode> added;
        require(wrap(parent)->get_ownerDocument(document.put()), "find a document");
        require(document->createElement(Bstr(std::string_view(name)).get(), element.put()),
                "create an element");
        require(wrap(parent)->appendChild(element.get(), added.put()), "add an element");
        return element.detach();
    }

    Node appendCopy(Node parent, Node original) const override {
        ComPtr<IXMLDOMNode> copy;
        ComPtr<IXMLDOMNode> added;
        require(wrap(original)->cloneNode(VARIANT_TRUE, copy.put()), "copy an element");
        require(wrap(parent)->appendChild(copy.get(), added.put()), "add an element");
        return asElement(added).detach();
    }

    /// A detached element lives as long as somebody refers to it.
    void remove(Node node) const override {
        ComPtr<IXMLDOMNode> removed;
        if (const ComPtr<IXMLDOMNode> parent = parentOf(node))
            require(parent->removeChild(wrap(node), removed.put()), "remove an element");
    }

    Node parent(Node node) const override { return asElement(parentOf(node)).detach(); }

    /// Everything else that is done with this node works for any kind of node.
    Node following(Node node) const override {
        ComPtr<IXMLDOMNode> next;
        require(wrap(node)->get_nextSibling(next.put()), kFindNode);
        return next.detach();
    }

    void detach(Node node) const override { remove(node); }

    void insert(Node parent, Node node, Node before) const override {
        ComPtr<IXMLDOMNode> added;
        if (before == nullptr) {
            require(wrap(parent)->appendChild(wrap(node), added.put()), "add an element");
            return;
        }
        Variant next;
        next.vt = VT_DISPATCH;
        next.pdispVal = static_cast<IXMLDOMNode*>(before);
        next.pdispVal->AddRef();
        require(wrap(parent)->insertBefore(wrap(node), next, added.put()), "insert an element");
    }

    std::vector<Node> select(Node context, const std::string& query) const override {
        const ComPtr<IXMLDOMNodeList> found = evaluate(context, query);
        std::vector<ComPtr<IXMLDOMElement>> elements;
        for (ComPtr<IXMLDOMNode> node = nextOf(found); node; node = nextOf(found))
            if (ComPtr<IXMLDOMElement> element = asElement(node))
                elements.push_back(std::move(element));
        std::vector<Node> nodes(elements.size());
        std::transform(elements.begin(), elements.end(), nodes.begin(),
                       [](ComPtr<IXMLDOMElement>& element) { return element.detach(); });
        return nodes;
    }

 private:
    /// The parent of a node; null for a detached one.
    static ComPtr<IXMLDOMNode> parentOf(Node node) {
        ComPtr<IXMLDOMNode> parent;
        require(wrap(node)->get_parentNode(parent.put()), kFindNode);
        return parent;
    }
    static ComPtr<IXMLDOMNodeList> evaluate(Node context, const std::string& query) {
        ComPtr<IXMLDOMNodeList> found;
        const HRESULT result = wrap(context)->selectNodes(Bstr(query).get(), found.put());
        if (result == E_OUTOFMEMORY)
            throw std::bad_alloc();
        if (FAILED(result) || !found)
            throw MalformedQuery(query);
        return found;
    }
    /// Returns the next node found; null after the last.
    static ComPtr<IXMLDOMNode> nextOf(const ComPtr<IXMLDOMNodeList>& found) {
        ComPtr<IXMLDOMNode> node;
        require(found->nextNode(node.put()), kFindNode);
        return node;
    }
};

const MsxmlLibrary& library() {
    static const MsxmlLibrary theLibrary;
    return theLibrary;
}

/// Returns an error for text that the library accepts but must not be given; otherwise empty.
/// Entities can expand without limit, and deep nesting can exhaust the stack.
std::string faultOfText(std::string_view text) {
    if (!isXmlText(text))
        return "bytes that are not UTF-8 text";
    int depth = 0;
    while (!text.empty()) {
        const MarkupKind kind = takeMarkup(text).kind;
        if (kind == MarkupKind::DocumentType)
            return "a document type";
        const bool isElement = kind == MarkupKind::StartTag || kind == MarkupKind::EmptyTag;
        if (isElement && depth >= kDeepestNesting)
            return nestingFault();
        depth += kind == MarkupKind::StartTag ? 1 : kind == MarkupKind::EndTag ? -1 : 0;
    }
    return {};
}

/// Returns the text without a byte order mark and declaration, which name the encoding of the file.
std::string_view withoutDeclaration(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    if (text.starts_with("<?xml "))
        takeMarkup(text);
    return text;
}

ComPtr<IXMLDOMDocument2> createDocument() {
    ComPtr<IXMLDOMDocument2> document;
    for (const CLSID& version : kDocumentClasses) {
        const HRESULT result = CoCreateInstance(version, nullptr, CLSCTX_INPROC_SERVER, kDocument2,
                                                reinterpret_cast<void**>(document.put()));
        if (SUCCEEDED(result))
            return document;
        if (result == E_OUTOFMEMORY)
            throw std::bad_alloc();
    }
    throw Error("The system has no XML library (MSXML 6.0 or 3.0).");
}

class MsxmlDocument : public XmlDocument {
 public:
    MsxmlDocument() : document_(createDocument()) {
        document_->put_async(VARIANT_FALSE);
        document_->put_resolveExternals(VARIANT_FALSE);
        document_->put_validateOnParse(VARIANT_FALSE);
        // The text is kept as it is; `canonicalXml` drops white space between elements.
        document_->put_preserveWhiteSpace(VARIANT_TRUE);
        require(document_->setProperty(Bstr(std::string_view("SelectionLanguage")).get(),
                                       Variant("XPath")),
                "set its query language");
        // Versions before 6.0 do not know this property. No document type reaches them anyway.
        Variant yes;
        yes.vt = VT_BOOL;
        yes.boolVal = VARIANT_TRUE;
        document_->setProperty(Bstr(std::string_view("ProhibitDTD")).get(), yes);
    }

    bool loadXml(std::string text) override {
        error_ = faultOfText(text);
        if (error_.empty()) {
            VARIANT_BOOL loaded = VARIANT_FALSE;
            const Bstr wide(withoutDeclaration(text));
            require(document_->loadXML(wide.get(), &loaded), "read a document");
            if (loaded != VARIANT_TRUE)
                error_ = reasonOfFailure();
        }
        if (!error_.empty())
            document_ = MsxmlDocument().document_;
        return error_.empty();
    }

    std::string parseError() const override { return error_; }

    std::string xml() const override {
        ComPtr<IXMLDOMElement> element;
        Bstr text;
        require(document_->get_documentElement(element.put()), kFindNode);
        if (element)
            require(element->get_xml(text.put()), "write a document");
        return canonicalXml(text.utf8());
    }

    XmlElement root() const override {
        ComPtr<IXMLDOMElement> element;
        require(document_->get_documentElement(element.put()), kFindNode);
        return {library(), element.detach()};
    }

 private:
    std::string reasonOfFailure() const {
        ComPtr<IXMLDOMParseError> fault;
        Bstr reason;
        long line = 0;
        long code = 0;
        if (FAILED(document_->get_parseError(fault.put())) || !fault)
            return "no well-formed text";
        fault->get_errorCode(&code);
        if (code == E_OUTOFMEMORY)
            throw std::bad_alloc();
        fault->get_reason(reason.put());
        fault->get_line(&line);
        std::string text = reason.utf8();
        text.erase(text.find_last_not_of(" \t\r\n.") + 1);
        if (text.empty())
            return "no well-formed text";
        return line > 0 ? text + " in line " + std::to_string(line) : text;
    }

    ComPtr<IXMLDOMDocument2> document_;
    std::string error_;
};

}  // namespace

std::unique_ptr<XmlDocument> createMsxmlDocument() {
    return std::make_unique<MsxmlDocument>();
}

}  // namespace pelk
