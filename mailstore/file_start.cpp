#include "mailstore/file_start.h"

#include <algorithm>
#include <string_view>

#include "mailstore/compressed_file.h"
#include "mailstore/directory.h"
#include "mailstore/mail_file.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

using namespace std::string_view_literals;

/// In bytes: enough for each signature and for the name of a header field.
constexpr std::size_t kStartSize = 64;

struct ForeignFormat {
    std::string_view signature;
    /// Required where other kinds of files share the signature.
    std::string_view ending;
};

constexpr ForeignFormat kForeignFormats[] = {
    {"!BDN"sv, ""sv},                                  // Outlook, .pst and .ost
    {"\xCF\xAD\x12\xFE"sv, ""sv},                      // Outlook Express, .dbx
    {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, ".msg"sv},  // Outlook, a single message
    {"PK\x03\x04"sv, ".olm"sv},                        // Outlook for Mac, an archive
    {"*mbx*\r\n"sv, ""sv},                             // UW IMAP
    {"\x01\x01\x01\x01\n"sv, ""sv},                    // MMDF
    {"BABYL OPTIONS:"sv, ""sv},                        // Emacs Rmail
};

/// The fields that servers and mail programs write first. A text that begins with another word and
/// a colon is no message.
constexpr std::string_view kFirstFields[] = {"ARC-Seal",     "Authentication-Results",
                                             "Bcc",          "Cc",
                                             "Content-Type", "Date",
                                             "Delivered-To", "DKIM-Signature",
                                             "Envelope-To",  "From",
                                             "Message-ID",   "MIME-Version",
                                             "Received",     "Reply-To",
                                             "Return-Path",  "Sender",
                                             "Subject",      "To"};

bool isForeign(std::string_view start, const std::string& path) {
    return std::any_of(std::begin(kForeignFormats), std::end(kForeignFormats),
                       [&](const ForeignFormat& format) {
                           return start.starts_with(format.signature) &&
                                  (format.ending.empty() || hasEnding(path, format.ending));
                       });
}

bool isMessage(std::string_view start) {
    const std::size_t colon = start.find(':');
    if (colon == std::string_view::npos)
        return false;
    const std::string_view name = start.substr(0, colon);
    if (name.starts_with("X-"))
        return name.find_first_of(" \t\r\n") == std::string_view::npos;
    return std::any_of(std::begin(kFirstFields), std::end(kFirstFields),
                       [&](std::string_view field) { return equalsIgnoringCase(field, name); });
}

}  // namespace

FileStart startOf(const std::string& path) {
    const std::string start = startOfContent(path, kStartSize);
    if (start.empty())
        return FileStart::Nothing;
    if (start.starts_with(kFromLine))
        return FileStart::Mbox;
    if (isForeign(start, path))
        return FileStart::Foreign;
    return isMessage(start) ? FileStart::Message : FileStart::Other;
}

}  // namespace pelk
