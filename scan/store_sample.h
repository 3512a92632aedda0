#pragma once
// By what a mail store is known again at another place: the fingerprints of its first e-mails.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/mail_client.h"

namespace pelk {

/// The number of e-mails that a sample is made of.
inline constexpr std::size_t kSampleSize = 16;

/// Whether a scan passes over the items of the folder, as it is one of the session's default
/// folders that are left out. A look-up that fails is handed to `onFault`, and finds nothing.
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

/// Looks at the first e-mails below the top-level folder, in the order in which a scan takes them.
/// What cannot be read is passed over.
std::vector<std::uint64_t> takeSample(MailSession& session, MailFolder& store);

}  // namespace pelk
