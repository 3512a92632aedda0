#include "history/own_addresses.h"

#include <gtest/gtest.h>

namespace pelk {
namespace {

std::string found(const History& history) {
    std::string text;
    for (const OwnAddress& own : findOwnAddresses(history))
        text += own.address + ": " + own.reason + "\n";
    return text;
}

TEST(OwnAddresses, sendTheMailInFoldersForSentMail) {
    History history;
    EXPECT_EQ(found(history), "");
    history.record("filed@x").inSentMail = 5;
    history.record("work@x").inSentMail = 30;
    history.record("me@x").inSentMail = 100;
    history.record("account@x").isAccount = true;
    history.record("list@x") = {0, 0, "", "List-Post", 100};
    EXPECT_EQ(found(history),
              "me@x: in folders for sent mail\nwork@x: in folders for sent mail\n"
              "account@x: an account of the mail program\n");
    history.forgetUser();
    EXPECT_EQ(found(history), "");
}

TEST(OwnAddresses, areGuessedFromTheMostEMails) {
    History history;
    for (const char* const friendOfMine : {"ann@x", "bob@x"}) {
        history.countMail(friendOfMine, "me@x", 20200101);
        history.countMail("me@x", friendOfMine, 20200102);
        history.countMail(friendOfMine, "list@x", 20200102);
        history.countMail("me@x", "list@x", 20200102);
        history.countMail("cy@x", "list@x", 20200102);
    }
    history.record("list@x").listBy = "List-Id";
    EXPECT_EQ(found(history), "me@x: a guess: takes part in the most e-mails\n");
}

}  // namespace
}  // namespace pelk
