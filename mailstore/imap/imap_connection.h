#pragma once
// A connection to an IMAP server (RFC 3501), by libetpan. It only reads: it opens folders by
// EXAMINE and marks no message as read.

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
    /// The full path, in the server's encoding.
    std::string name;
    /// Separates the names in the path of a nested folder; 0 if folders cannot be nested.
    char delimiter = 0;
    /// Attributes without the backslash, such as "Noselect" or "Trash" (RFC 6154).
    std::vector<std::string> attributes;
};

struct ExaminedMailbox {
    std::uint32_t uidValidity = 0;
    /// 0 if the server does not send it.
    std::uint32_t uidNext = 0;
    std::uint32_t exists = 0;
};

/// A calendar part whose MIME fields do not name its method.
struct CalendarPart {
    /// The part number for BODY[...], such as "2.1".
    std::string section;
    std::string encoding;
};

struct FetchedHeader {
    std::uint32_t uid = 0;
    /// Seconds since 1970 (UTC), or `kNoTime`.
    std::int64_t internalDate = -1;
    bool deleted = false;
    bool draft = false;
    /// The header fields that Pelk fetches.
    std::string text;
    /// Whether a part is known to be a meeting request, or an answer to one.
    bool meeting = false;
    /// The parts that may be one, which only their content decides.
    std::vector<CalendarPart> calendars;
};

struct UidRange {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
};

/// How much of each message to fetch.
enum class Detail {
    /// Header fields and the structure of the body.
    Whole,
    /// The start of the header fields, for a message whose answer cannot be parsed otherwise.
    HeaderStart,
};

/// Every function may throw `ConnectionLost` or `BrokenAnswer`, which make this object unusable, or
/// another `Error` if the server refuses. The message quotes the server's reason, but no secret.
/// Only one thread at a time may call.
class ImapConnection {
 public:
    /// Connects and logs in. Throws `LoginRefused` if the server refuses the password, and `Error`
    /// instead of sending the secret unencrypted to another computer.
    ImapConnection(const ImapAccount& account, const std::string& secret, const Patience& patience);
    ~ImapConnection();
    ImapConnection(const ImapConnection&) = delete;
    ImapConnection& operator=(const ImapConnection&) = delete;

    std::vector<ListedMailbox> list();
    ExaminedMailbox examine(const std::string& mailbox);

    // The functions below read the folder that was examined last.

    /// Returns the UIDs above `uid` of messages not marked as deleted, in ascending order.
    std::vector<std::uint32_t> uidsAbove(std::uint32_t uid);
    /// Returns the messages in the range, in any order, and perhaps others. `next` is the range of
    /// the next call, which the server may begin to answer.
    std::vector<FetchedHeader> headers(const UidRange& range, Detail detail,
                                       const std::optional<UidRange>& next);
    /// Returns the first `count` messages of the folder.
    std::vector<FetchedHeader> firstHeaders(std::uint32_t count);
    /// Returns the start of a part, still transfer-encoded; empty if there is no such part.
    std::string partStart(std::uint32_t uid, const std::string& section);

 private:
    class Talk;
    std::unique_ptr<Talk> talk_;
};

}  // namespace pelk
