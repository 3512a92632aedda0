#pragma once
// Samples the fingerprints of a mail store's first e-mails, which identify it at another place.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/mail_client.h"

namespace pelk {

/// The number of e-mails in a sample.
inline constexpr std::size_t kSampleSize = 16;

/// Whether a scan leaves out the folder's items because it is one of the session's left-out default
/// folders. Passes the `Error` of a failed look-up to `onFault` and continues.
template <typename Fault>
bool isLeftOut(MailSession& session, MailFolder& folder, const Fault& onFault) {
    for (const DefaultFolder kind : session.leftOutFolders()) {
        try {
            if (session.isDefaultFolder(folder, kind))
                return true;
        } catch (const Error& error) {
            onFault(error);
        }
    }
    return false;
}

/// Returns the fingerprints of the first e-mails below the store's top-level folder, in the order
/// of a scan. Skips everything that cannot be read.
std::vector<std::uint64_t> takeSample(MailSession& session, MailFolder& store);

}  // namespace pelk
