#include "views/email_parser.h"

#include <algorithm>
#include <iterator>

namespace pelk {

std::vector<std::string> labelsOf(const std::string& domain) {
    std::vector<std::string> labels;
    std::size_t start = 0;
    for (std::size_t dot = domain.find('.'); dot != std::string::npos;
         dot = domain.find('.', start)) {
        labels.push_back(domain.substr(start, dot - start));
        start = dot + 1;
    }
    labels.push_back(domain.substr(start));
    return labels;
}

std::optional<std::vector<std::string>> splitAddress(std::string_view address,
                                                     const Language& language) {
    const std::size_t at = address.find('@');
    if (at == std::string_view::npos)
        return std::nullopt;
    std::vector<std::string> parts{std::string(address.substr(0, at))};
    std::vector<std::string> labels = labelsOf(language.lowerCase(address.substr(at + 1)));
    std::move(labels.begin(), labels.end(), std::back_inserter(parts));
    return parts;
}

}  // namespace pelk
