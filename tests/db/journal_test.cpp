// Undo and redo: whatever is edited, the document returns to the byte, and the indexes with it.

#include "tests/db/index_fault.h"
#include "tests/db/random_edits.h"
#include "tests/support/message_of.h"

namespace pelk {
namespace {

void editOnce(RandomEdits& edits, Database& database) {
    switch (edits.number(25)) {
        case 0:
            database.addAddresses(edits.number(kIds), {address(edits.number(kIds)), address(1)});
            break;
        case 1:
            if (const auto all = database.contactElements(); !all.empty())
                database.addCopyOfContact(all[edits.number(all.size() - 1)]);
            break;
        case 2:
            database.countMails(2);
            break;
        case 3:
            if (edits.number(9) == 0)
                database.replaceContent(load(edits.brokenDocument()));
            break;
        default:
            edits.edit(database, false);
    }
}

/// Makes random steps, and compares the document with a list of its former texts.
class History {
 public:
    History(RandomEdits& edits, Database& database) : edits_(edits), database_(database) {
        texts_.push_back(database.xml());
    }

    void step(std::size_t mostEdits) {
        const std::string name = std::to_string(++steps_);
        database_.inStep(name, [&] {
            for (int count = 1 + edits_.number(mostEdits); count > 0; --count)
                editOnce(edits_, database_);
        });
        // Without an edit that changes something, there is no step.
        if (database_.undoName() != name)
            return;
        texts_.resize(++now_);
        texts_.push_back(database_.xml());
        first_ = std::max(first_, now_ - std::min(now_, Journal::kSteps));
    }
    void move(bool back) {
        const bool possible = back ? now_ > first_ : now_ + 1 < texts_.size();
        ASSERT_EQ((back ? database_.undoName() : database_.redoName()) != "", possible);
        ASSERT_EQ(back ? database_.undo() : database_.redo(), possible);
        now_ += possible ? back ? -1 : 1 : 0;
        ASSERT_EQ(database_.xml(), texts_[now_]);
        ASSERT_EQ(indexFault(database_, kIds), "");
    }
    /// Whether undoing all steps brings back the oldest text that the journal reaches.
    bool undoesAll() {
        while (database_.undo())
            --now_;
        return now_ == first_ && database_.xml() == texts_[first_];
    }
    /// Whether the journal reaches back to the beginning.
    bool isWhole() const { return first_ == 0; }

 private:
    RandomEdits& edits_;
    Database& database_;
    std::vector<std::string> texts_;
    std::size_t now_ = 0;
    std::size_t first_ = 0;
    int steps_ = 0;
};

TEST(Journal, returnsToTheFirstDocumentAfterTenThousandEdits) {
    RandomEdits edits(2028);
    Database database = load(edits.brokenDocument());
    History history(edits, database);
    int made = 0;
    for (std::size_t most = 500; made < 10000; made += static_cast<int>(most) / 2) {
        history.step(most);
        if (edits.number(3) == 0) {
            ASSERT_NO_FATAL_FAILURE(history.move(edits.number(2) != 0));
        }
    }
    EXPECT_TRUE(history.isWhole());
    EXPECT_TRUE(history.undoesAll());
}

TEST(Journal, undoesAndRedoesSmallSteps) {
    RandomEdits edits(2029);
    for (int round = 0; round < 20; ++round) {
        Database database = load(edits.brokenDocument());
        History history(edits, database);
        for (int act = 0; act < 100; ++act) {
            if (edits.number(2) != 0) {
                history.step(round % 4);
            } else {
                ASSERT_NO_FATAL_FAILURE(history.move(edits.number(2) != 0));
            }
        }
        EXPECT_TRUE(history.undoesAll());
    }
}

TEST(Journal, revertsAStepThatFailsAndForgetsAllAfterOtherEdits) {
    RandomEdits edits(2030);
    for (int round = 0; round < 40; ++round) {
        Database database = load(edits.brokenDocument());
        database.inStep("rename", [&] { database.addContact("Ann", "ann@x"); });
        ASSERT_TRUE(database.undo());
        const std::string before = database.xml();
        const auto fail = [&] {
            for (int count = 0; count < 20; ++count)
                editOnce(edits, database);
            throw Error("no");
        };
        ASSERT_EQ(messageOf([&] { database.inStep("failure", fail); }), "no");
        ASSERT_EQ(database.xml(), before);
        ASSERT_EQ(indexFault(database, kIds), "");
        ASSERT_EQ(database.undoName() + "/" + database.redoName(), "/rename");
        database.setDate("2026-11-23T00:00:00");
        ASSERT_FALSE(database.redo());
    }
}

}  // namespace
}  // namespace pelk
