// What every toolkit must do with a list.

#include "tests/controls/window_fixture.h"

namespace pelk {
namespace {

class List : public WindowTest {
 protected:
    List() {
        window_->setInnerSize({4000, 2000});
        for (const char* text : {"ann@x.org", "<b>bob</b> & co", "carl"})
            list_.addRow({text, "tag"});
        window_->show();
    }

    /// The rows as they are shown; the selected ones in brackets.
    std::string shown() {
        std::string all;
        std::size_t row = 0;
        for (const std::string& text : driver_.rowsOf(list_)) {
            EXPECT_EQ(text, list_.rows().at(row).text);
            all += list_.isSelected(row++) ? "[" + text + "]" : text + ";";
        }
        EXPECT_EQ(row, list_.rows().size());
        return all;
    }

    ListView& list_ = window_->addListView({0, 0, 4000, 2000});
};

TEST_F(List, LetsTheUserSelectAnyRows) {
    list_.setColumnHeader("a header that is not shown");
    EXPECT_EQ(shown(), "ann@x.org;<b>bob</b> & co;carl;");
    driver_.selectRows(list_, {0, 2});
    EXPECT_EQ(shown(), "[ann@x.org]<b>bob</b> & co;[carl]");
    driver_.selectRows(list_, {1});
    EXPECT_EQ(shown(), "ann@x.org;[<b>bob</b> & co]carl;");
    for (int row = 3; row < 300; ++row)
        list_.addRow({std::to_string(row), ""});
    driver_.selectRows(list_, {2, 299});
    EXPECT_TRUE(list_.isSelected(2));
    EXPECT_TRUE(list_.isSelected(299));
    EXPECT_FALSE(list_.isSelected(1));
}

TEST_F(List, KeepsTheSelectionOnItsRows) {
    driver_.selectRows(list_, {1, 2});
    list_.addRow({"Dora", ""});
    list_.removeRow(0);
    EXPECT_EQ(shown(), "[<b>bob</b> & co][carl]Dora;");
    list_.removeRow(1);
    EXPECT_EQ(shown(), "[<b>bob</b> & co]Dora;");
    list_.removeRow(0);
    EXPECT_EQ(shown(), "Dora;") << "a row was selected that the user did not select";
    list_.removeRow(0);
    EXPECT_EQ(shown(), "");
    list_.addRow({"Eve", ""});
    EXPECT_EQ(shown(), "Eve;");
}

}  // namespace
}  // namespace pelk
