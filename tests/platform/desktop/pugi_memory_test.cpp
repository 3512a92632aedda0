#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <pugixml.hpp>

#include "tests/support/adapters.h"

namespace pelk {
namespace {

int allocationsLeft = 0;

void* allocateWhileAny(std::size_t size) {
    return allocationsLeft-- > 0 ? std::malloc(size) : nullptr;
}

/// Loads a document and edits it. The texts are too large for the library's stock of memory.
void loadAndEdit() {
    const std::string large(50000, 'x');
    const std::unique_ptr<XmlDocument> document = makeXmlDocument();
    ASSERT_TRUE(document->loadXml("<r><a b='" + large + "'><c d='" + large + "'/></a></r>"));
    const std::unique_ptr<XmlDocument> other = makeXmlDocument();
    ASSERT_TRUE(other->loadXml("<r/>"));
    const XmlElement root = other->root();
    const XmlElement original = document->root().firstChild();
    // Within a document the copy shares texts, within two it does not.
    EXPECT_EQ(root.appendCopy(original).firstChild().text("d"), large);
    root.appendCopy(root.firstChild());
    const XmlElement added = root.appendElement(large.c_str());
    EXPECT_EQ(added.name(), large);
    added.setAttribute("b", large);
    EXPECT_EQ(added.text("b"), large);
    EXPECT_EQ(root.select("/r/a").size(), 2U);
}

TEST(PugiDocument, saysThatThereIsNoMemoryAndNeverThatTheTextIsBad) {
    pugi::set_memory_management_functions(allocateWhileAny, std::free);
    int failures = 0;
    for (bool failed = true; failed; failures += failed ? 1 : 0) {
        allocationsLeft = failures;
        try {
            loadAndEdit();
            failed = false;
        } catch (const std::bad_alloc&) {
        }
    }
    EXPECT_GE(failures, 5);
    pugi::set_memory_management_functions(std::malloc, std::free);
}

}  // namespace
}  // namespace pelk
