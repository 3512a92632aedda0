#include "history/history_document.h"

#include <gtest/gtest.h>

#include "db/damaged_data.h"
#include "tests/support/adapters.h"

namespace pelk {
namespace {

std::string documentWith(const std::string& exchange) {
    return "<pelkHistory date='2024-03-01T08:00:00' unknownSince='2024-03-01T08:00:00'><stores/>"
           "<own/><addresses><address value='a@x' with='" +
           exchange + "'/><address value='b@x'/></addresses></pelkHistory>";
}

TEST(HistoryDocument, refusesWhatNoScanCounts) {
    EXPECT_NO_THROW(readHistory(documentWith("1 20231231 31 0:1,0 1:0,2"), makeXmlDocument));
    std::string manyYears = "1 20231231 31 0:1,0";
    for (int count = 0; count < 20'000; ++count)
        manyYears += " 119988:1,0";
    for (const std::string& exchange :
         std::vector<std::string>{"1 20231231 30 0:1,0", "1 20231231 31 0:1,0 1:0,0",
                                  "1 99991231 1 0:1,0 1:1,0", manyYears})
        EXPECT_THROW(readHistory(documentWith(exchange), makeXmlDocument), DamagedData)
            << exchange.substr(0, 40);
}

}  // namespace
}  // namespace pelk
