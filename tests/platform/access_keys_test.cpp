#include "platform/access_keys.h"

#include <gtest/gtest.h>

namespace pelk {
namespace {

using Captions = std::vector<std::string>;

TEST(AccessKeys, areDifferentLettersWordsFirst) {
    EXPECT_EQ(withAccessKeys({"Merge contacts", "Rename", "Delete", "More details"}),
              (Captions{"&Merge contacts", "&Rename", "&Delete", "M&ore details"}));
    EXPECT_EQ(withAccessKeys({"Go", "Group by names", "go"}),
              (Captions{"&Go", "Group &by names", "g&o"}));
}

TEST(AccessKeys, leaveMarkedLettersAndTextsWithoutAFreeOne) {
    EXPECT_EQ(withAccessKeys({"Remove", "Find && &Remove", "Ärger && 1", "e&Go", "g"}),
              (Captions{"R&emove", "Find && &Remove", "Ärger && 1", "e&Go", "g"}));
}

}  // namespace
}  // namespace pelk
