#include "scan/scan_progress_meter.h"

#include <algorithm>
#include <cstdint>

#include "scan/store_sample.h"

namespace pelk {
namespace {

int countIn(MailSession& session, MailFolders& folders) {
    int count = 0;
    try {
        while (const std::unique_ptr<MailFolder> folder = folders.next()) {
            const auto ignore = [](const Error&) {};
            count += folder->holdsMail() && !isLeftOut(session, *folder, ignore) ? 1 : 0;
            count += countIn(session, *folder->folders());
        }
    } catch (const Error&) {
        // The rest cannot be listed.
    }
    return count;
}

}  // namespace

int countScannedFolders(MailSession& session) {
    try {
        return countIn(session, *session.folders());
    } catch (const Error&) {
        return 0;
    }
}

void ScanProgressMeter::folderStarted() {
    ++folder_;
    items_ = 0;
    item_ = 0;
}

/// More folders may have been found than there were at first.
int ScanProgressMeter::folders() const {
    return std::max(folders_, folder_);
}

int ScanProgressMeter::value() const {
    if (folder_ == 0)
        return 0;
    const std::int64_t whole = static_cast<std::int64_t>(kEnd) * (folder_ - 1);
    const std::int64_t part =
        items_ == 0 ? 0 : static_cast<std::int64_t>(kEnd) * std::min(item_, items_) / items_;
    return static_cast<int>((whole + part) / folders());
}

}  // namespace pelk
