#include "views/domain_order.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "views/email_parser.h"
#include "views/registered_domain.h"

namespace pelk {
namespace {

/// Numbers distinct texts, first by appearance and then by the alphabet.
class TextNumbers {
 public:
    std::size_t of(const std::string& text) {
        const auto [known, isNew] = numbers_.try_emplace(text, texts_.size());
        if (isNew)
            texts_.push_back(known->first);
        return known->second;
    }
    /// Returns by number the position in alphabetical order.
    std::vector<std::size_t> ranks(const Language& language) const {
        const std::vector<std::size_t> order = language.alphabeticalOrder(texts_);
        std::vector<std::size_t> ranks(order.size());
        for (std::size_t rank = 0; rank < order.size(); ++rank)
            ranks[order[rank]] = rank;
        return ranks;
    }

 private:
    std::unordered_map<std::string, std::size_t> numbers_;
    std::vector<std::string_view> texts_;
};

std::string domainOf(const MailAddress& address) {
    std::string domain;
    for (std::size_t part = 1; part < address.parts.size(); ++part)
        domain += (part == 1 ? "" : ".") + address.parts[part];
    return domain;
}

/// Returns the text of the top-level node.
std::string topOf(const MailAddress& address, DomainGrouping grouping) {
    return grouping == DomainGrouping::ByLabel ? address.parts.back()
                                               : std::string(registeredDomain(domainOf(address)));
}

using Path = std::vector<std::size_t>;

/// Returns the numbers of the texts from the top-level node down to the address.
Path pathTo(const MailAddress& address, DomainGrouping grouping, TextNumbers& tops,
            TextNumbers& texts) {
    const std::string top = topOf(address, grouping);
    Path path = {tops.of(top)};
    for (std::size_t label = address.parts.size() - labelsOf(top).size(); label > 1; --label)
        path.push_back(texts.of(address.parts[label - 1]));
    path.push_back(texts.of(textBelowDomain(address)));
    return path;
}

}  // namespace

void sortAsShown(std::vector<MailAddress>& addresses, DomainGrouping grouping,
                 const Language& language) {
    TextNumbers tops;
    TextNumbers texts;
    std::vector<std::pair<Path, MailAddress>> byPath;
    byPath.reserve(addresses.size());
    for (MailAddress& address : addresses) {
        Path path = pathTo(address, grouping, tops, texts);
        byPath.emplace_back(std::move(path), std::move(address));
    }
    const std::vector<std::size_t> topRanks = tops.ranks(language);
    const std::vector<std::size_t> ranks = texts.ranks(language);
    for (auto& [path, address] : byPath) {
        // Labels at the top have the order of their first appearance.
        if (grouping == DomainGrouping::ByRegisteredName)
            path.front() = topRanks[path.front()];
        for (std::size_t step = 1; step < path.size(); ++step)
            path[step] = ranks[path[step]];
    }
    std::stable_sort(byPath.begin(), byPath.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    std::transform(byPath.begin(), byPath.end(), addresses.begin(),
                   [](auto& entry) { return std::move(entry.second); });
}

}  // namespace pelk
