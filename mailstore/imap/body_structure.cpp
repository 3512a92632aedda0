#include "mailstore/imap/body_structure.h"

#include <string>

#include "mailstore/imap/imap_faults.h"
#include "mailstore/mail_text.h"
#include "mailstore/meeting_search.h"

namespace pelk {
namespace {

/// Each calendar costs a request to the server, so a hostile message must not name many.
constexpr std::size_t kMostCalendars = 4;
constexpr int kDeepest = 100;

/// Reads a list of names and values, or NIL, and returns the value of `name`.
std::string parameter(ResponseCursor& at, std::string_view name) {
    std::string found;
    if (!at.take('(')) {
        at.skipValue();
        return found;
    }
    for (at.skipBlanks(); !at.take(')'); at.skipBlanks()) {
        const bool wanted = equalsIgnoringCase(at.string(), name);
        at.skipBlanks();
        if (wanted)
            found = at.string();
        else
            at.skipValue();
    }
    return found;
}

/// Skips values as far as the list has them.
void skip(ResponseCursor& at, int count) {
    for (at.skipBlanks(); count > 0 && at.next() != ')'; --count, at.skipBlanks())
        at.skipValue();
}

bool isAttachment(ResponseCursor& at) {
    if (!at.take('('))
        return false;
    const bool attached = equalsIgnoringCase(at.string(), "attachment");
    at.skipRestOfList();
    return attached;
}

/// Reads a part behind its "(".
void readPart(ResponseCursor& at, const std::string& section, FetchedHeader& header) {
    const std::string type = at.string();
    at.skipBlanks();
    if (!equalsIgnoringCase(type, "text") || !equalsIgnoringCase(at.string(), "calendar"))
        return;
    at.skipBlanks();
    const std::string method = parameter(at, "method");
    skip(at, 2);  // id and description
    const std::string encoding = at.string();
    skip(at, 3);  // octets, lines and MD5
    if (isAttachment(at))
        return;
    header.meeting = header.meeting || isMeetingMethod(method);
    if (method.empty() && header.calendars.size() < kMostCalendars)
        header.calendars.push_back({section, encoding});
}

void readStructure(ResponseCursor& at, const std::string& section, int depth,
                   FetchedHeader& header) {
    if (depth > kDeepest)
        throw BrokenAnswer("The mail server's answer has too many nested parts.");
    at.require('(');
    if (at.next() != '(') {
        readPart(at, section.empty() ? "1" : section, header);
    } else {
        const std::string prefix = section.empty() ? "" : section + ".";
        for (int number = 1; at.next() == '('; ++number, at.skipBlanks())
            readStructure(at, prefix + std::to_string(number), depth + 1, header);
    }
    at.skipRestOfList();
}

}  // namespace

void findCalendars(ResponseCursor& structure, FetchedHeader& header) {
    readStructure(structure, {}, 0, header);
}

}  // namespace pelk
