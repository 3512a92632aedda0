#pragma once
// The relations view, opened on a small database.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "maintenance/contact_edits.h"
#include "maintenance/saved_change.h"
#include "tests/support/core_platform.h"
#include "tests/support/tree_text.h"
#include "views/ShowForm.h"

namespace pelk {

/// Ann (id 1) exchanged 200 e-mails with Zoe, 100 with bob and 10 with Carl. There are no other
/// relations.
inline constexpr const char* kCommunity =
    "<pelkDB date='2026-11-20T00:00:00' totalMails='310' totalContacts='5' maxInd='50' minInd='5'>"
    "<contacts><contact id='1' name='Ann'><emails><email value='a@a'/><email value='a@b'/></emails>"
    "</contact><contact id='2' name='Zoe'><emails><email value='zoe@a'/></emails></contact>"
    "<contact id='3' name='bob'><emails><email value='bob@a'/></emails></contact>"
    "<contact id='4' name='Carl'><emails><email value='carl@a'/></emails></contact>"
    "<contact id='5' name='Anouk'><emails/></contact></contacts>"
    "<relations total='0'><relation part1='1' part2='2' weight='200'/>"
    "<relation part1='1' part2='3' weight='100'/><relation part1='1' part2='4' weight='10'/>"
    "<relation part1='4' part2='4' weight='7'/></relations></pelkDB>";

class ShowFormTest : public ::testing::Test {
 protected:
    CorePlatform core;
    Driver& driver = core.driver();
    std::unique_ptr<Database> database = loadDocument(kCommunity);
    int changes = 0;
    ShowForm form{core.ui(), core.language()};

    void SetUp() override {
        open();
        form.show();
        driver.settle();
    }
    void open() {
        form.database = database.get();
        form.renameContact = [this](int id, const std::string& name) {
            tellIfUnsaved(core.dialogs,
                          [&] { renameContact(*database, core.storage(), id, name); });
        };
        form.deleteContacts = [this](const std::vector<int>& ids, const std::string& what) {
            deleteContacts(*database, core.storage(), ids, what);
        };
        form.databaseChanged = [this] { ++changes; };
        form.startShowing();
    }
    std::string rows(const TreePath& parent = {}) {
        return shownRows(driver, form.presTree, parent);
    }
    std::string expanded(int row) {
        driver.expand(form.presTree, {row});
        return rows({row});
    }
    std::string foundBy(const std::string& answer) {
        core.dialogs.expectInput("", "Enter the first letters of the contact you want to find:", "",
                                 answer);
        driver.click(form.gotoButton);
        return driver.selectedText(form.presTree).value_or("");
    }
};

}  // namespace pelk
