#pragma once
// One conversation with an IMAP server (RFC 3501), by libetpan. It only ever reads: folders are
// opened by EXAMINE, and nothing is marked as read.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "mailstore/imap/imap_account.h"
#include "mailstore/imap/network_stream.h"

namespace pelk {

/// A folder as the server lists it.
struct ListedMailbox {
    /// In the server's encoding, from the top.
    std::string name;
    /// What parts the names of folders inside each other; 0 when nothing does.
    char delimiter = 0;
    /// Attributes without the backslash, such as "Noselect" or, by RFC 6154, "Trash".
    std::vector<std::string> attributes;
};

struct ExaminedMailbox {
    std::uint32_t uidValidity = 0;
    /// 0 when the server does not tell.
    std::uint32_t uidNext = 0;
    std::uint32_t exists = 0;
};

/// A part of a message that is a calendar and does not tell its method outside of itself.
struct CalendarPart {
    /// As BODY[...] takes it: "2.1".
    std::string section;
    std::string encoding;
};

struct FetchedHeader {
    std::uint32_t uid = 0;
    /// In seconds since 1970, or `kNoTime`.
    std::int64_t internalDate = -1;
    bool deleted = false;
    bool draft = false;
    /// The fields that are asked for.
    std::string text;
    /// Whether a part is a meeting request, or an answer to one.
    bool meeting = false;
    /// Of these any may be.
    std::vector<CalendarPart> calendars;
};

struct UidRange {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
};

/// How much of messages is asked for.
enum class Detail {
    /// Header fields and the structure of the body.
    Whole,
    /// The beginning of the header fields, for a message that makes the answer unusable.
    HeaderStart,
};

/// Every function fails with `ConnectionLost` or `BrokenAnswer`, after which this can be used no
/// more, or with another `Error` when the server refuses. What the server says about it is
/// repeated, but no secret.
class ImapConnection {
 public:
    /// Connects and logs in. Without TLS it goes on only with this very machine. `limit` is how
    /// long the server may be silent.
    ImapConnection(const ImapAccount& account, const std::string& secret,
                   std::chrono::seconds limit);
    ~ImapConnection();
    ImapConnection(const ImapConnection&) = delete;
    ImapConnection& operator=(const ImapConnection&) = delete;

    std::vector<ListedMailbox> list();
    ExaminedMailbox examine(const std::string& mailbox);

    /// The rest is about the folder that was examined last.

    /// The UIDs of the messages above that one which are not marked as deleted, ascending.
    std::vector<std::uint32_t> uidsAbove(std::uint32_t uid);
    /// The messages in that range, in any order. Others may be among them. `next` is the range that
    /// will be asked for after this one: the server may begin with it.
    std::vector<FetchedHeader> headers(const UidRange& range, Detail detail,
                                       const std::optional<UidRange>& next);
    /// The first messages by number.
    std::vector<FetchedHeader> firstHeaders(std::uint32_t count);
    /// The beginning of a part, as it is transferred; empty when there is none.
    std::string partStart(std::uint32_t uid, const std::string& section);

 private:
    class Talk;
    std::unique_ptr<Talk> talk_;
};

}  // namespace pelk
