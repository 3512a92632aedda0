// The commands about time.

#include "tests/cli/cli_fixture.h"

namespace pelk {
namespace {

using HistoryCliTest = CliTest;

TEST_F(HistoryCliTest, PrintsWhenMailWasExchanged) {
    run("scan " +
        folder.write("Later", kMail + std::string("From ann@a.example Fri May  2 09:12:00 "
                                                  "2025\nFrom: ann@a.example\nTo: "
                                                  "bob@b.example\n\nHi\n\n")));
    EXPECT_EQ(run("history ann@a.example bob@b.example").output,
              "first: 2025-03-04, last: 2025-05-02\n"
              "            sent  received\n"
              "2025           2         1\n"
              "total          2         1\n");
    EXPECT_EQ(run("history ann@a.example --by month").output,
              "first: 2025-03-04, last: 2025-05-02\n"
              "            sent  received\n"
              "2025-03        2         1\n"
              "2025-04        0         0\n"
              "2025-05        1         0\n"
              "total          3         1\n");
    EXPECT_EQ(run("history cy@c.example --json").output,
              "{\n    \"first\": \"2025-03-04\",\n    \"last\": \"2025-03-04\",\n"
              "    \"periods\": [\n        {\n            \"period\": \"2025\",\n"
              "            \"received\": 1,\n            \"sent\": 0\n        }\n    ],\n"
              "    \"received\": 1,\n    \"sent\": 0\n}\n");
    EXPECT_EQ(run("cold --of ann@a.example").output,
              "strong      3      2  2025-05-02  Bob\n"
              "medium      1      3  2025-03-04  cy@c.example\n");
    EXPECT_EQ(run("cold --of ann@a.example --months 1200").output, "");
    expectSays("cold --of cy@c.example --json", "\"last\": \"2025-03-04\"");
    expectSays("cold", "strong      3      2  2025-05-02  Bob");
    folder.write("Robot",
                 "From a Fri May  2 09:12:00 2025\nFrom: noreply@a.example\nTo: "
                 "bob@b.example\n\nHi\n\n");
    run("scan " + folder.path() + "/Robot");
    expectSays("cold --of bob@b.example", "noreply@a.example");
    expectSays("cold --of bob@b.example --without-lists", "1 contact left out.");
    expectSays("cold --of x", "There is no contact x.");
    expectSays("history cy@c.example --by day", "option --by takes year or month");
    std::filesystem::remove(folder.path() + "/data/pelk/pelk-history.db");
    expectSays("history 1 2",
               "total          0         0\npelk: The history begins with the next scan.");
}

}  // namespace
}  // namespace pelk
