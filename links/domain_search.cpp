#include "links/domain_search.h"

#include <utility>

#include "views/domains.h"

namespace pelk {

std::optional<std::string> domainRefusal(const std::string& source, const std::string& target) {
    // Every text ends with the empty string, so it would be a subdomain of the empty domain.
    if (source.empty() || target.empty())
        return kEmptyDomainMessage;
    if (target == source)
        return source + " is the same as " + target;
    if (target.ends_with(source))
        return target + " is a subdomain of " + source;
    if (source.ends_with(target))
        return source + " is a subdomain of " + target;
    return std::nullopt;
}

std::string noDomainLinksMessage(const std::string& source, const std::string& target) {
    return "Cannot find a path between " + source + " and " + target;
}

DomainLinks findDomainLinks(const Database& database, const std::string& source,
                            const std::string& target, DomainSearchProgress& progress) {
    const std::vector<int> sourceIds = contactsBySuffix(database, source);
    const std::vector<int> targetIds = contactsBySuffix(database, target);
    progress.pairsCounted(sourceIds.size() * targetIds.size());

    DomainLinks links{source, target, {}};
    LinkSearch search(database);
    std::size_t index = 0;
    for (const int sourceId : sourceIds)
        for (const int targetId : targetIds) {
            progress.pairStarted(++index);
            std::optional<LinkChain> chain = search.find(sourceId, targetId);
            if (!chain)
                continue;
            links.chains.push_back(std::move(*chain));
            if (progress.stopsAfterChain())
                return links;
        }
    return links;
}

}  // namespace pelk
