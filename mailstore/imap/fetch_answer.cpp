#include "mailstore/imap/fetch_answer.h"

#include <optional>

#include "mailstore/imap/fetch_response.h"
#include "mailstore/imap/imap_faults.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

/// Removes the word from the start of the text, with the blank behind it.
bool takeWord(std::string_view& text, std::string_view word) {
    if (!equalsIgnoringCase(text.substr(0, word.size()), word))
        return false;
    const std::string_view rest = text.substr(word.size());
    if (!rest.empty() && rest.front() != ' ' && rest.front() != '\r' && rest.front() != '\n')
        return false;
    text = rest.substr(rest.starts_with(' ') ? 1 : 0);
    return true;
}

/// Returns whether the response ends the answer.
bool takeResponse(std::string_view response, const std::string& tag, FetchAnswer& answer) {
    std::string_view rest = response;
    if (takeWord(rest, tag)) {
        const bool done = takeWord(rest, "OK");
        if (!done && !takeWord(rest, "NO") && !takeWord(rest, "BAD"))
            throw BrokenAnswer("The mail server's answer has no known end.");
        answer.end = done ? FetchAnswer::End::Done : FetchAnswer::End::Refused;
    } else if (takeWord(rest, "*") && takeWord(rest, "BYE")) {
        answer.end = FetchAnswer::End::Closed;
    } else {
        if (std::optional<FetchedHeader> header = fetchedHeader(response))
            answer.messages.push_back(std::move(*header));
        return false;
    }
    answer.text = rest;
    return true;
}

}  // namespace

FetchAnswer readFetchAnswer(ResponseSplitter& responses, const std::string& tag,
                            const std::function<std::string_view()>& more) {
    FetchAnswer answer;
    for (;;) {
        while (const std::optional<std::string_view> response = responses.next())
            if (takeResponse(*response, tag, answer))
                return answer;
        responses.add(more());
    }
}

}  // namespace pelk
