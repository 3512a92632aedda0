#include "views/email_parser.h"

namespace pelk {

std::optional<std::vector<std::string>> splitAddress(std::string_view address,
                                                     const Language& language) {
    const std::size_t at = address.find('@');
    if (at == std::string_view::npos)
        return std::nullopt;
    std::vector<std::string> parts{std::string(address.substr(0, at))};
    const std::string domain = language.lowerCase(address.substr(at + 1));
    std::size_t label = 0;
    for (std::size_t dot = domain.find('.'); dot != std::string::npos;
         dot = domain.find('.', label)) {
        parts.push_back(domain.substr(label, dot - label));
        label = dot + 1;
    }
    parts.push_back(domain.substr(label));
    return parts;
}

}  // namespace pelk
