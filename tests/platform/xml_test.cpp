#include "platform/xml.h"

#include <gtest/gtest.h>

#include "tests/support/adapters.h"

namespace pelk {
namespace {

class XmlTest : public ::testing::Test {
 protected:
    std::unique_ptr<XmlDocument> document = makeXmlDocument();
};

TEST_F(XmlTest, writesTheOneForm) {
    ASSERT_TRUE(
        document->loadXml("<?xml version='1.0' encoding='UTF-16' ?>\n<!-- lost -->\n"
                          "<a b='1'  c = \"&lt;&#65;&quot;'&gt;\" >\r\n <d ></d> <e/>\n</a>\n"));
    document->root().firstChild().setAttribute("f", "& < > \" ' ü 李");
    EXPECT_EQ(document->xml(),
              "<?xml version=\"1.0\" encoding=\"UTF-16\"?>"
              "<a b=\"1\" c=\"&lt;A&quot;'>\">"
              "<d f=\"&amp; &lt; > &quot; ' ü 李\"/><e/></a>");
}

TEST_F(XmlTest, refusesWhatIsNoOneWellFormedDocument) {
    using namespace std::literals;
    for (const std::string& text :
         {""s, "text"s, "<a>"s, "<a></b>"s, "<a/><b/>"s, "<a/>junk"s, "<a b='1' b='2'/>"s,
          "<a><b c='' d='' c=''/></a>"s, "<a><b/><c d='' d=''/></a>"s,
          "<a b='' c='' d='' e='' f='' g='' h='' i='' j='' b=''/>"s, "<a b='&lt; & y'/>"s,
          "<a b='&unknown;'/>"s, "<a b='&#0;'/>"s, "<a b='&#xD800;'/>"s, "<a b='\x01'/>"s,
          "<a b='\xFF'/>"s, "<a b='\0'/>"s, "<!DOCTYPE a [<!ENTITY e 'x'>]><a/>"s}) {
        EXPECT_FALSE(document->loadXml(text)) << text;
        EXPECT_NE(document->parseError(), "");
        EXPECT_FALSE(document->root());
    }
    EXPECT_TRUE(document->loadXml("<?p & ?><a><!-- & --><![CDATA[ & ]]></a>"));
    EXPECT_EQ(document->parseError(), "");
}

TEST_F(XmlTest, refusesDeepNestingOnEveryPlatform) {
    const auto nested = [](int depth, const std::string& innermost) {
        std::string text = "<r><a/><!-- <a> -->";
        for (int level = 2; level < depth; ++level)
            text += "<a b='>'>text";
        text += innermost;
        for (int level = 2; level < depth; ++level)
            text += "</a>";
        return text + "</r>";
    };
    for (const char* innermost : {"<c/>", "<c></c>", "<c>text<!-- --></c>"}) {
        EXPECT_TRUE(document->loadXml(nested(256, innermost))) << document->parseError();
        for (const int depth : {257, 200000}) {
            EXPECT_FALSE(document->loadXml(nested(depth, innermost)));
            EXPECT_EQ(document->parseError(), "elements nested deeper than 256 levels");
            EXPECT_FALSE(document->root());
        }
    }
}

TEST_F(XmlTest, walksAndEditsElements) {
    ASSERT_TRUE(document->loadXml("<r>text<a x='1'/>text<b/></r>"));
    const XmlElement root = document->root();
    const XmlElement a = root.firstChild();
    EXPECT_EQ(a.name(), "a");
    EXPECT_EQ(a.nextSibling().name(), "b");
    EXPECT_FALSE(a.nextSibling().nextSibling());
    EXPECT_EQ(a.attribute("y"), std::nullopt);
    a.setAttribute("y", "");
    EXPECT_EQ(a.attribute("y"), "");
    a.setAttribute("x", "2");
    EXPECT_EQ(a.texts("x", "y"), (std::array<std::string, 2>{"2", ""}));
    EXPECT_EQ(a.texts("z", "y", "x"), (std::array<std::string, 3>{"", "", "2"}));
    const XmlElement added = root.appendElement("c");
    root.select("c").front().setAttribute("z", "3");
    EXPECT_EQ(added.text("z"), "3") << "both refer to the same element";
    a.nextSibling().remove();
    const std::string xml = document->xml();
    EXPECT_EQ(xml.substr(xml.find("<r>")), "<r>text<a x=\"2\" y=\"\"/>text<c z=\"3\"/></r>");
}

TEST_F(XmlTest, putsDetachedElementsBackWhereTheyWere) {
    ASSERT_TRUE(document->loadXml("<r>one<a x='1'><d/></a>two<b/><c/></r>"));
    const std::string before = document->xml();
    const XmlElement root = document->root();
    const XmlElement a = root.firstChild();
    const XmlElement b = a.nextSibling();
    const XmlElement c = b.nextSibling();
    const XmlElement d = a.firstChild();
    const XmlPlace placeOfA = a.place();
    a.detach();
    const XmlPlace placeOfC = c.place();
    c.detach();
    const XmlPlace placeOfD = d.place();
    d.detach();
    a.setAttribute("y", "2");
    const std::string xml = document->xml();
    EXPECT_EQ(xml.substr(xml.find("<r>")), "<r>onetwo<b/></r>");
    EXPECT_EQ(document->root().name(), "r");
    EXPECT_TRUE(root.select("//a | //c | //d").empty());
    EXPECT_FALSE(b.nextSibling());
    d.insertAt(placeOfD);
    c.insertAt(placeOfC);
    a.insertAt(placeOfA);
    a.removeAttribute("y");
    a.removeAttribute("z");
    EXPECT_EQ(document->xml(), before);
    EXPECT_EQ(root.select("//d").size(), 1U);
    b.detach();
    b.remove();
    EXPECT_EQ(a.nextSibling().name(), "c");
}

TEST_F(XmlTest, copiesElementsFromAnyDocument) {
    ASSERT_TRUE(document->loadXml("<r><a x='1'><b>text</b></a><c/></r>"));
    const std::unique_ptr<XmlDocument> other = makeXmlDocument();
    ASSERT_TRUE(other->loadXml("<r><a x='2&quot;'><d y='3'/></a></r>"));
    const XmlElement root = document->root();
    const XmlElement own = root.appendCopy(root.firstChild());
    const XmlElement foreign = root.appendCopy(other->root().firstChild());
    own.setAttribute("x", "4");
    other->root().firstChild().remove();
    EXPECT_EQ(foreign.firstChild().text("y"), "3");
    const std::string xml = document->xml();
    EXPECT_EQ(xml.substr(xml.find("<r>")),
              "<r><a x=\"1\"><b>text</b></a><c/><a x=\"4\"><b>text</b></a>"
              "<a x=\"2&quot;\"><d y=\"3\"/></a></r>");
}

TEST_F(XmlTest, selectsInDocumentOrder) {
    ASSERT_TRUE(document->loadXml("<r n='5'><a i='1'><b/></a><a i='2'/>tail</r>"));
    const XmlElement root = document->root();
    EXPECT_EQ(root.select("/r/a").size(), 2U);
    EXPECT_EQ(root.select("a[@i='2'] | a[@i='1']")[0].text("i"), "1");
    EXPECT_EQ(root.firstChild().select("b").size(), 1U);
    EXPECT_EQ(root.firstChild().select("/r").front().text("n"), "5");
    EXPECT_TRUE(root.select("/r/@n").empty()) << "only elements are selected";
    for (const char* query : {"/r/a[@i='o'x']", "", "count(a)", "//["})
        EXPECT_THROW(root.select(query), MalformedQuery) << query;
}

}  // namespace
}  // namespace pelk
