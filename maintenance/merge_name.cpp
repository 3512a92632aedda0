#include "maintenance/merge_name.h"

#include <algorithm>

namespace pelk {

std::string sharedName(const Database& database, const std::vector<int>& ids) {
    if (ids.size() < 2)
        return {};
    const std::string name = database.nameOf(ids.front());
    const bool agree =
        std::all_of(ids.begin(), ids.end(), [&](int id) { return database.nameOf(id) == name; });
    return agree ? name : std::string();
}

}  // namespace pelk
