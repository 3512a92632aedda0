// Fuzzes an mbox (RFC 4155): where its messages begin, their headers, people, times and kinds.

#include "fuzz/mail_target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const pelk::TemporaryFolder folder;
    static const std::string path = folder.path() + "/Inbox";
    pelk::replaceContent(path, pelk::textOf(data, size));
    pelk::readMail(path);
    return 0;
}
