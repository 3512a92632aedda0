// Fuzzes the header of a message (RFC 5322), the parsers of its fields, and those of file names.

#include "fuzz/fuzz.h"
#include "mailstore/folder_name.h"
#include "mailstore/gmail_labels.h"
#include "mailstore/header_people.h"
#include "mailstore/message_header.h"
#include "mailstore/message_identity.h"
#include "mailstore/message_time.h"
#include "mailstore/mozilla_status.h"
#include "mailstore/special_folder.h"

namespace pelk {
namespace {

void readTime(NotedTime time) {
    if (const std::optional<LocalTime> local = localTime(time))
        require(local->year >= 1970 && local->year <= 9999 && local->month >= 1 &&
                    local->month <= 12 && local->day >= 1 && local->day <= 31,
                "a time is a valid date");
}

void readFields(const MessageHeader& header) {
    for (const char* name : {"From", "To", "Date", "Subject", "Content-Type", "Received"}) {
        const std::vector<std::string> values = header.all(name);
        require(header.first(name) == (values.empty() ? "" : values.front()),
                "the first value is the first of all");
        for (const std::string& value : values) {
            require(value.find_first_of(std::string_view("\n\r\0", 3)) == std::string::npos,
                    "a value is one line", value);
            readTime({dateFieldTime(value)});
            readTime({receivedFieldTime(value), true});
            require(!folderOfLabels(value) || !mainLabel(value).empty(), "a folder has a label");
        }
    }
    require(fingerprint(header) != 0, "a message has a fingerprint");
    const std::string id = messageId(header);
    require(!id.starts_with(' ') && !id.ends_with(' ') && id.find('>') == std::string::npos,
            "a Message-ID has no brackets or blanks around it", id);
}

void readAutomationOf(const MessageHeader& header, std::string_view text) {
    for (const NamedList& list : automationInHeader(text).lists)
        require(list.address.find('@') != std::string::npos, "a list has an address");
    const MailAutomation automation = automationOf(header);
    std::string all = automation.listId + automation.precedence + automation.autoSubmitted;
    for (const NamedList& list : automation.lists) {
        require(list.address.find('@') != std::string::npos, "a list has an address");
        all += list.address;
    }
    require(all.find_first_of("\r\n \t") == std::string::npos, "each is one word", all);
}

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pelk;
    const std::string text(textOf(data, size));
    const MessageHeader header(text);
    readFields(header);
    readAutomationOf(header, text);
    const std::string line = text.substr(0, text.find('\n'));
    readTime(fromLineTime(line));
    readTime({maildirNameTime(line).value_or(kNoTime)});
    require(!splitMaildirName("." + line).empty(), "a folder has a name");
    decodeModifiedUtf7(line);
    folderCalled(line);
    maildirFlags(line);
    isExpunged(text);
    return 0;
}
