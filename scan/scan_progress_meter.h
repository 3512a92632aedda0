#pragma once
// How far a scan has come with all its folders.

#include "platform/mail_client.h"

namespace pelk {

/// Returns how many folders a scan of the session reads. Does not count what cannot be listed,
/// which the scan itself reports.
int countScannedFolders(MailSession& session);

/// Counts the folders and items of a scan. Each folder counts as much as any other, because the
/// number of its items is known only when it is read.
class ScanProgressMeter {
 public:
    /// The value at the end of the scan.
    static constexpr int kEnd = 10000;

    explicit ScanProgressMeter(int folders) : folders_(folders) {}

    void folderStarted();
    void itemsCounted(int count) { items_ = count; }
    void itemStarted(int index) { item_ = index; }

    /// The number of the current folder, from 1.
    int folder() const { return folder_; }
    int folders() const;
    /// Between 0 and `kEnd`.
    int value() const;

 private:
    int folders_;
    int folder_ = 0;
    int items_ = 0;
    int item_ = 0;
};

}  // namespace pelk
