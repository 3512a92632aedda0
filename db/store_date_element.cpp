#include "db/store_date_element.h"

#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "db/place_text.h"

namespace pelk {
namespace {

std::string textOfPrints(const std::vector<std::uint64_t>& prints) {
    std::string text;
    for (const std::uint64_t print : prints) {
        std::array<char, 16> digits;
        const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), print, 16);
        text += text.empty() ? "" : " ";
        text += std::string_view(digits.data(), written.ptr);
    }
    return text;
}

std::vector<std::uint64_t> printsInText(const std::string& text) {
    std::vector<std::uint64_t> prints;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at < end; ++at) {
        std::uint64_t print = 0;
        at = std::from_chars(at, end, print, 16).ptr;
        prints.push_back(print);
    }
    return prints;
}

}  // namespace

StoreDate readStoreDate(const XmlElement& element) {
    StoreDate store{decodePlace(element.text("place")),
                    element.text("first"),
                    element.text("date"),
                    {},
                    printsInText(element.text("sample"))};
    for (XmlElement scan = element.firstChild(); scan; scan = scan.nextSibling())
        store.ahead.add(scan.text("scan"), printsInText(scan.text("prints")));
    return store;
}

void appendStoreDate(const XmlElement& parent, const StoreDate& store) {
    const XmlElement element = parent.appendElement("store");
    element.setAttribute("place", encodePlace(store.place));
    element.setAttribute("first", store.first);
    element.setAttribute("date", store.date);
    if (!store.sample.empty())
        element.setAttribute("sample", textOfPrints(store.sample));
    for (const auto& [scan, prints] : store.ahead.scans()) {
        const XmlElement counted = element.appendElement("counted");
        counted.setAttribute("scan", scan);
        counted.setAttribute("prints", textOfPrints(prints));
    }
}

}  // namespace pelk
