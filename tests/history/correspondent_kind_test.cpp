#include "history/correspondent_kind.h"

#include <gtest/gtest.h>

namespace pelk {
namespace {

MailAutomation through(const std::string& list) {
    return {{{"List-Post", list}}, {}, true, "list", {}};
}

void note(History& history, const MailAutomation& automation, const std::string& sender,
          const std::vector<std::string>& recipients) {
    std::vector<std::size_t> numbers;
    for (const std::string& recipient : recipients)
        numbers.push_back(history.numberOf(recipient));
    noteAutomation(history, automation, history.numberOf(sender), numbers);
}

/// Returns the kinds and reasons of the people of an e-mail that was sent three times.
std::string kindsAfter(const MailAutomation& automation, const std::string& sender,
                       const std::vector<std::string>& recipients) {
    History history;
    for (int time = 0; time < 3; ++time)
        note(history, automation, sender, recipients);
    std::vector<std::string> all = recipients;
    all.insert(all.begin(), sender);
    std::string text;
    for (const std::string& address : all) {
        const Correspondent found = kindOfContact({1, "", {address}}, history);
        text += address + " " + nameOf(found.kind);
        text += found.reason.empty() ? "\n" : ": " + found.reason + "\n";
    }
    return text;
}

TEST(CorrespondentKind, knowsListsByTheHeader) {
    EXPECT_EQ(kindsAfter(through("Users@x.org"), "ann@x.org", {"bob@x.org", "users@x.org"}),
              "ann@x.org person\nbob@x.org person\nusers@x.org list: List-Post in its e-mails\n");
    // The list comes as the sender where answers go to it.
    EXPECT_EQ(kindsAfter(through("users@x.org"), "users@x.org", {}),
              "users@x.org list: List-Post in its e-mails\n");
    const MailAutomation byId{{}, "Users.Lists.x.org", true, "bulk", {}};
    EXPECT_EQ(kindsAfter(byId, "ann@x.org", {"users@lists.x.org"}),
              "ann@x.org person\nusers@lists.x.org list: List-Id in its e-mails\n");
    EXPECT_EQ(kindsAfter(byId, "ann@y.org", {"users@x.org", "users@y.org", "user@x.org"}),
              "ann@y.org person\nusers@x.org list: List-Id in its e-mails\nusers@y.org person\n"
              "user@x.org person\n");
    EXPECT_EQ(kindsAfter({}, "users@lists.x.org", {"other@lists.x.org"}),
              "users@lists.x.org person\nother@lists.x.org list: on the host lists.x.org\n");
    EXPECT_EQ(kindsAfter({}, "ann-dev@x.org", {"dm-devel@x.org", "ida.list@x.org", "users@x.org"}),
              "ann-dev@x.org person\ndm-devel@x.org list: named dm-devel\nida.list@x.org person\n"
              "users@x.org person\n");
}

TEST(CorrespondentKind, knowsHostsThatHaveOnlyLists) {
    History history;
    const auto kind = [&history] {
        return kindOfContact({1, "", {"c@y"}}, history, listHostsIn(history)).reason;
    };
    note(history, through("l@y"), "ann@x", {"l@y"});
    for (const char* const silent : {"a@y", "b@y", "c@y", "d@y", "e@y", "f@y", "g@y", "h@y", "i@y"})
        history.countMail("ann@x", silent, 20200101);
    EXPECT_EQ(kind(), "") << "too few";
    history.countMail("ann@x", "j@y", 20200101);
    EXPECT_EQ(kind(), "on the host y");
    ++history.record("l@y").sent;
    EXPECT_EQ(kind(), "on the host y");
    ++history.record("b@y").sent;
    EXPECT_EQ(kind(), "") << "a person writes from there";
}

TEST(CorrespondentKind, knowsRobotsByTheHeader) {
    const auto kind = [](const MailAutomation& automation) {
        return kindsAfter(automation, "ann@x.org", {});
    };
    EXPECT_EQ(kind({{}, "1.mc.x.org", true, "bulk", {}}),
              "ann@x.org robot: List-Unsubscribe in its e-mails\n");
    EXPECT_EQ(kind({{}, {}, false, "bulk", {}}), "ann@x.org robot: Precedence in its e-mails\n");
    EXPECT_EQ(kind({{{"List-Post", "l@x"}}, {}, true, "list", "auto-generated"}),
              "ann@x.org robot: Auto-Submitted in its e-mails\n");
    for (const MailAutomation& written :
         {MailAutomation{{{"X-Mailing-List", "l@x"}}, {}, false, "bulk", {}},
          MailAutomation{{}, {}, false, "bulk", "auto-replied"},
          MailAutomation{{}, {}, true, "list", "no"}})
        EXPECT_EQ(kind(written), "ann@x.org person\n");
}

TEST(CorrespondentKind, isThatOfMostEMails) {
    History history;
    const auto send = [&history](const char* autoSubmitted) {
        note(history, {{}, {}, false, {}, autoSubmitted}, "ann@x.org", {});
        return kindOfContact({1, "", {"ann@x.org"}}, history).kind;
    };
    EXPECT_EQ(send("no"), CorrespondentKind::Person);
    EXPECT_EQ(send("auto-generated"), CorrespondentKind::Person);
    EXPECT_EQ(send("auto-generated"), CorrespondentKind::Robot);
    EXPECT_EQ(send(""), CorrespondentKind::Person);
}

TEST(CorrespondentKind, knowsRobotsByName) {
    for (const char* const address :
         {"no-reply@x", "no_reply@x", "accounts.noreply@x", "do.not.reply@x", "mailer-daemon@x",
          "postmaster@x", "bounces+123@x", "notifications@x", "reply+a1b2@x", "users-request@x",
          "patchwork-bot+netdev@x", "bot2@x"})
        EXPECT_EQ(kindOfAddress(address, {}).kind, CorrespondentKind::Robot) << address;
    for (const char* const address : {"talbot@x", "jan.bot@x", "norman.mailer@x", "request@x",
                                      "unalerted@x", "reply@x", "ann", "@x", ""})
        EXPECT_EQ(kindOfAddress(address, {}).kind, CorrespondentKind::Person) << address;
    EXPECT_EQ(kindOfAddress("do.not-reply@x", {}).reason, "named do-not-reply");
}

TEST(CorrespondentKind, ofAContactIsThatOfAllItsAddresses) {
    History history;
    EXPECT_EQ(kindOfContact({1, "", {"no-reply@x", "bot@y"}}, history).reason, "named no-reply");
    EXPECT_EQ(kindOfContact({1, "", {"no-reply@x", "ann@y"}}, history).reason, "");
    EXPECT_EQ(kindOfContact({1, "", {}}, history).kind, CorrespondentKind::Person);
}

}  // namespace
}  // namespace pelk
