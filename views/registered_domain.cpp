#include "views/registered_domain.h"

#include <algorithm>
#include <iterator>

namespace pelk {
namespace {

/// The rules for a name, as flags: it is a suffix, each name one label below it is one, or it is an
/// exception from the latter.
constexpr int kSuffix = 1;
constexpr int kWildcard = 2;
constexpr int kException = 4;

struct PublicSuffix {
    std::string_view name;
    int rules;
};

#include "views/public_suffixes.h"

int rulesFor(std::string_view name) {
    const auto* const found = std::lower_bound(
        std::begin(kPublicSuffixes), std::end(kPublicSuffixes), name,
        [](const PublicSuffix& suffix, std::string_view wanted) { return suffix.name < wanted; });
    return found != std::end(kPublicSuffixes) && found->name == name ? found->rules : 0;
}

bool isNumericAddress(std::string_view domain) {
    const std::string_view last = domain.substr(domain.rfind('.') + 1);
    return domain.starts_with('[') ||
           (!last.empty() && last.find_first_not_of("0123456789") == std::string_view::npos);
}

/// Returns the position of the label before the one at `label`, which must not be the first.
std::size_t labelBefore(std::string_view domain, std::size_t label) {
    const std::size_t dot = label < 2 ? std::string_view::npos : domain.rfind('.', label - 2);
    return dot == std::string_view::npos ? 0 : dot + 1;
}

/// Returns where the domain's suffix begins.
std::size_t suffixOf(std::string_view domain) {
    std::size_t label = domain.rfind('.') + 1;
    std::size_t suffix = label;
    int below = 0;
    while (true) {
        const int rules = rulesFor(domain.substr(label));
        if ((rules & kException) != 0)
            return domain.find('.', label) + 1;
        if ((rules & kSuffix) != 0 || (below & kWildcard) != 0)
            suffix = label;
        if (label == 0)
            return suffix;
        below = rules;
        label = labelBefore(domain, label);
    }
}

}  // namespace

std::string_view registeredDomain(std::string_view domain) {
    if (isNumericAddress(domain) || domain.find('.') == std::string_view::npos)
        return domain;
    const std::size_t suffix = suffixOf(domain);
    return domain.substr(suffix == 0 ? 0 : labelBefore(domain, suffix));
}

}  // namespace pelk
