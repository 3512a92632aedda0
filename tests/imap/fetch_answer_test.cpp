// Parses answers to FETCH commands in all forms that a server may choose, and broken ones.

#include "mailstore/imap/fetch_answer.h"

#include <gtest/gtest.h>

#include "mailstore/imap/imap_faults.h"

namespace pelk {
namespace {

/// Describes the answer, whose bytes come `piece` at a time.
std::string answerOf(std::string_view bytes, std::size_t piece) {
    ResponseSplitter responses;
    const auto more = [&] {
        if (bytes.empty())
            throw ConnectionLost("lost");
        const std::string_view next = bytes.substr(0, piece);
        bytes.remove_prefix(next.size());
        return next;
    };
    std::string found;
    try {
        const FetchAnswer answer = readFetchAnswer(responses, "7", more);
        for (const FetchedHeader& message : answer.messages) {
            found += std::to_string(message.uid) + " " + std::to_string(message.internalDate) +
                     (message.deleted ? " deleted" : "") + (message.draft ? " draft" : "") +
                     (message.meeting ? " meeting" : "") + " " + message.text;
            for (const CalendarPart& part : message.calendars)
                found += " " + part.section + part.encoding;
            found += "\n";
        }
        found += answer.end == FetchAnswer::End::Done ? "done: " + answer.text : answer.text;
    } catch (const BrokenAnswer&) {
        found += "broken";
    } catch (const ConnectionLost&) {
        found += "lost";
    }
    return found + std::string(bytes) + responses.takeRest();
}

std::string answerOf(const std::string& bytes) {
    const std::string found = answerOf(bytes, bytes.size());
    EXPECT_EQ(answerOf(bytes, 1).substr(0, found.size()), found);
    return found;
}

TEST(FetchAnswer, mayHaveAnyFormThatTheProtocolAllows) {
    const std::string calendar = "\"Calendar\" NIL NIL NIL \"BASE64\" 1 1";
    EXPECT_EQ(
        answerOf("* OK text {5}\r\n* 9 EXISTS\r\n* 2 FETCH (FLAGS (\\Seen) UID 2)\r\n"
                 "* 1 fetch (uid 5 X-GM-LABELS (\"a)\" {2}\r\n\") (b)) internaldate "
                 "\" 2-Jan-1970 00:00:01 -0130\" FLAGS (\\deleted [x $y) "
                 "body[header.fields (\"FROM\" {2}\r\nTO)]<0> \"a\\\"\\\\)\")\r\n"
                 "* 2 FETCH (BODY[] {3}\r\n7 O UID 6 FLAGS ( \\Draft) BODYSTRUCTURE "
                 "((\"TEXT\" \"HTML\" (\"a\" \"b)\") NIL NIL \"7BIT\" 1 1)((\"TEXT\" " +
                 calendar + " NIL (\"Attachment\" NIL))(\"text\" " + calendar +
                 " NIL (\"INLINE\" (\"a\" \"b\")) NIL)(\"MESSAGE\" \"RFC822\" NIL NIL NIL \"7BIT\" "
                 "1 (NIL) (\"TEXT\" " +
                 calendar +
                 ") 1) \"MIXED\")(\"TEXT\" \"CALENDAR\" (\"c\" \"d\" {6}\r\nMETHOD \"reply\") NIL "
                 "NIL \"8BIT\" 1 1) \"MIXED\" NIL))\r\n7 OK yes\r\n* 3 EXPUNGE\r\n"),
        "5 91801 deleted a\"\\)\n6 -1 draft meeting 7 O 2.2BASE64\ndone: yes\r\n* 3 EXPUNGE\r\n");
    EXPECT_EQ(answerOf("7 NO [X] not today\r\n"), "[X] not today\r\n");
    EXPECT_EQ(answerOf("* BYE enough\r\n"), "enough\r\n");
}

TEST(FetchAnswer, isRefusedIfBroken) {
    const std::string deep(1'000, '(');
    for (const std::string& text : std::vector<std::string>{
             "* 1 FETCH (UID x)", "* 1 FETCH (UID 5", "* 1 FETCH UID 5", "* 1 FETCH (UID 5) 6",
             "* 1 FETCH (BODY[ 5)", "* 1 FETCH (BODY[] x)", "* 1 FETCH (BODY[] \"x)",
             "* 1 FETCH (FLAGS \\Seen)", "* 1 FETCH (BODYSTRUCTURE " + deep + ")",
             "* 1 FETCH (BODYSTRUCTURE (\"TEXT\" \"CALENDAR\" (\"a\")))", "junk", "+ go on",
             "7 YES", "* 1 FETCH (BODY[] {1048577}", "* 1 FETCH (BODY[] {99999999999999999999999}"})
        EXPECT_EQ(answerOf(text + "\r\n").substr(0, 6), "broken") << text;
    EXPECT_EQ(answerOf("* 1 FETCH (BODY[] {9}\r\n)\r\n7 OK\r\n").substr(0, 4), "lost");
}

}  // namespace
}  // namespace pelk
