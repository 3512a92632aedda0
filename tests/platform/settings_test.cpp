// What every platform's settings must do.

#include <gtest/gtest.h>

#include "tests/support/adapters.h"
#include "tests/support/temporary_folder.h"

namespace pelk {
namespace {

TEST(Settings, ArePermanent) {
    const TemporaryFolder folder;
    const auto settings = makeSettings(folder.path());
    const auto later = makeSettings(folder.path());
    EXPECT_EQ(later->read("sort"), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << "reading creates nothing";
    for (const char* const text : {"by name", "", "Åsa \"1, 2\"; 50 %\n[x]=y", "@Invalid()"}) {
        settings->write("sort", text);
        EXPECT_EQ(later->read("sort"), text);
    }
    settings->write("show", "all");
    EXPECT_EQ(later->read("sort"), "@Invalid()");
}

TEST(Settings, ThatCannotBeSavedAreNoFailure) {
    const auto settings = makeSettings("/proc/none");
    settings->write("sort", "x");
}

}  // namespace
}  // namespace pelk
