#include "mailstore/folder_purposes.h"

#include <algorithm>

#include "mailstore/folder_name.h"

namespace pelk {

std::string purposeKey(const std::string& place) {
    std::string key;
    for (std::size_t begin = 0; begin < place.size();) {
        const std::size_t end = std::min(place.find('/', begin), place.size());
        key += decodeModifiedUtf7(place.substr(begin, end - begin)) + "/";
        begin = end + 1;
    }
    return key;
}

}  // namespace pelk
