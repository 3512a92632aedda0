#pragma once
// The answer to a FETCH command: messages, and how the answer ends.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "mailstore/imap/imap_connection.h"
#include "mailstore/imap/response_splitter.h"

namespace pelk {

struct FetchAnswer {
    enum class End {
        Done,
        Refused,
        /// The server ends the connection (BYE).
        Closed,
    };

    std::vector<FetchedHeader> messages;
    End end = End::Done;
    /// What the server says at the end, undecoded.
    std::string text;
};

/// Reads the answer to the command with that tag. `more` returns the next bytes of the server; what
/// it throws is passed on. Keeps in `responses` what comes after the answer. Throws `BrokenAnswer`
/// if the answer cannot be read.
FetchAnswer readFetchAnswer(ResponseSplitter& responses, const std::string& tag,
                            const std::function<std::string_view()>& more);

}  // namespace pelk
