#pragma once
// Builds the text of documents for tests.

#include <string_view>

#include "tests/support/core_platform.h"

namespace pelk {

inline Database load(std::string_view xml) {
    return std::move(*loadDocument(xml));
}

inline std::string documentOf(const std::string& contacts, const std::string& relations) {
    return "<pelkDB date='2020-01-01T00:00:00' totalMails='0' totalContacts='9' maxInd='50' "
           "minInd='5'><contacts>" +
           contacts + "</contacts><relations total='0'>" + relations + "</relations></pelkDB>";
}

inline std::string contactXml(const std::string& id, const std::string& address) {
    return "<contact id='" + id + "'><emails><email value='" + address + "'/></emails></contact>";
}

inline std::string relationXml(const std::string& part1, const std::string& part2,
                               const std::string& weight) {
    return "<relation part1='" + part1 + "' part2='" + part2 + "' weight='" + weight + "'/>";
}

}  // namespace pelk
