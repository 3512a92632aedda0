#pragma once
// The order in which a tree of domains shows addresses.

#include <vector>

#include "platform/language.h"
#include "views/domains.h"

namespace pelk {

enum class DomainGrouping { ByLabel, ByRegisteredName };

/// Sorts addresses as `DomainsTree` shows them when everything is expanded, from top to bottom.
void sortAsShown(std::vector<MailAddress>& addresses, DomainGrouping grouping,
                 const Language& language);

}  // namespace pelk
