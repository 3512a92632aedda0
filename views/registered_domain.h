#pragma once
// The part of a mail domain that its owner has registered: intel.com of mail.eu.intel.com, and
// bbc.co.uk of news.bbc.co.uk.

#include <string>
#include <string_view>

namespace pelk {

/// Returns the label below the public suffix with the suffix, by the rules of
/// https://publicsuffix.org/list/: of all rules that match, an exception prevails, else the
/// longest, and the last label is a suffix if none matches. Returns the whole domain if it is a
/// suffix itself or has no dot, and for an address literal (RFC 5321) or an IPv4 address.
///
/// The domain is in lower case. Internationalized suffixes are known in Unicode only; of their
/// ASCII form (xn--) the last label counts.
std::string_view registeredDomain(std::string_view domain);

}  // namespace pelk
