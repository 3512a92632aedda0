#include "platform/windows/xml_form.h"

#include <gtest/gtest.h>

#include "tests/support/adapters.h"

namespace pelk {
namespace {

const std::string kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>";

TEST(XmlForm, isMadeOfWhatALibraryMayWrite) {
    EXPECT_EQ(
        inOneForm("<?xml version='1.0'?>\r\n<!-- > --><a  b = '\"&gt;&apos;' c=\"&#xFC;&#9;>\""
                  " >\r\n\t<?go on?><d></d>\r\n\t<e />\r\n</a>\r\n"),
        kDeclaration + "<a b=\"&quot;>'\" c=\"ü&#09;>\"><d/><e/></a>");
    EXPECT_EQ(inOneForm("<a>one\r\ntwo<b> </b><![CDATA[ <c/> ]]></a >"),
              kDeclaration + "<a>one\ntwo<b/><![CDATA[ <c/> ]]></a >");
    EXPECT_EQ(inOneForm(""), kDeclaration);
}

TEST(MsxmlDocument, takesTheDepthThatItSaysAndNoMore) {
    const auto nested = [](int depth) {
        std::string text;
        for (int level = 0; level < depth; ++level)
            text += "<a b='>'><!-- <a> --><c/>";
        for (int level = 0; level < depth; ++level)
            text += "</a>";
        return text;
    };
    const std::unique_ptr<XmlDocument> document = makeXmlDocument();
    EXPECT_TRUE(document->loadXml(nested(255))) << document->parseError();
    EXPECT_EQ(document->xml().find("<c/>"), (kDeclaration + "<a b=\">\">").size());
    EXPECT_FALSE(document->loadXml(nested(257)));
    EXPECT_NE(document->parseError().find("256 levels"), std::string::npos);
}

TEST(MsxmlDocument, keepsElementsOfTwoDocumentsApart) {
    const std::unique_ptr<XmlDocument> one = makeXmlDocument();
    const std::unique_ptr<XmlDocument> other = makeXmlDocument();
    ASSERT_TRUE(one->loadXml("\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?><a 李='𐐀'/>"));
    ASSERT_TRUE(other->loadXml("<a/>"));
    EXPECT_TRUE(one->root() == one->root());
    EXPECT_FALSE(one->root() == other->root());
    EXPECT_EQ(one->xml(), kDeclaration + "<a 李=\"𐐀\"/>");
}

}  // namespace
}  // namespace pelk
