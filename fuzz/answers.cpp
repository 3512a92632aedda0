// Fuzzes the answers of a mail server to FETCH commands, and the limits of all its answers.

#include <algorithm>

#include "fuzz/fuzz.h"
#include "mailstore/imap/answer_guard.h"
#include "mailstore/imap/fetch_answer.h"
#include "mailstore/imap/imap_faults.h"

namespace pelk {
namespace {

bool isWithinLimits(std::string_view bytes, std::size_t piece) {
    AnswerGuard guard;
    try {
        for (; !bytes.empty(); bytes.remove_prefix(std::min(piece, bytes.size())))
            guard.take(bytes.substr(0, piece));
        return true;
    } catch (const BrokenAnswer&) {
        return false;
    }
}

/// Describes the answer, whose bytes come `piece` at a time.
std::string answerOf(std::string_view bytes, std::size_t piece) {
    ResponseSplitter responses;
    try {
        const FetchAnswer answer = readFetchAnswer(responses, "7", [&] {
            if (bytes.empty())
                throw ConnectionLost("");
            const std::string_view next = bytes.substr(0, piece);
            bytes.remove_prefix(next.size());
            return next;
        });
        std::string found = answer.text + std::to_string(static_cast<int>(answer.end));
        for (const FetchedHeader& message : answer.messages) {
            require(message.uid != 0, "a message has a UID");
            found += std::to_string(message.uid) + message.text;
            for (const CalendarPart& part : message.calendars)
                found += part.section + part.encoding;
        }
        return found + responses.takeRest() + std::string(bytes);
    } catch (const BrokenAnswer&) {
        return "broken";
    } catch (const ConnectionLost&) {
        return "lost";
    }
}

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    // The first byte is the size of the pieces in which the bytes come, and not one of them.
    const std::size_t piece = data[0] % 64 + 1U;
    const std::string_view bytes = pelk::textOf(data + 1, size - 1);
    pelk::require(pelk::answerOf(bytes, size) == pelk::answerOf(bytes, piece),
                  "an answer is the same in pieces");
    pelk::require(pelk::isWithinLimits(bytes, size) == pelk::isWithinLimits(bytes, piece),
                  "the limits are the same in pieces");
    return 0;
}
