#include "platform/windows/canonical_xml.h"

#include <gtest/gtest.h>

#include "tests/support/adapters.h"

namespace pelk {
namespace {

const std::string kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>";

TEST(CanonicalXml, isMadeOfWhatALibraryMayWrite) {
    EXPECT_EQ(
        canonicalXml("<?xml version='1.0'?>\r\n<!-- > --><a  b = '\"&gt;&apos;' c=\"&#xFC;&#9;>\""
                     " >\r\n\t<?go on?><d></d>\r\n\t<e />\r\n</a>\r\n"),
        kDeclaration + "<a b=\"&quot;>'\" c=\"ü&#09;>\"><d/><e/></a>");
    EXPECT_EQ(canonicalXml("<a>one\r\ntwo<b> </b><![CDATA[ <c/> ]]></a >"),
              kDeclaration + "<a>one\ntwo<b/><![CDATA[ <c/> ]]></a >");
    EXPECT_EQ(canonicalXml(""), kDeclaration);
}

TEST(MsxmlDocument, passesOverTheMarkOfItsEncoding) {
    const std::unique_ptr<XmlDocument> document = makeXmlDocument();
    ASSERT_TRUE(document->loadXml("\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?><a 李='𐐀'/>"));
    EXPECT_EQ(document->xml(), kDeclaration + "<a 李=\"𐐀\"/>");
}

}  // namespace
}  // namespace pelk
