#include "maintenance/rejected_duplicates.h"

#include <algorithm>
#include <cstdint>
#include <sstream>

namespace pelk {
namespace {

constexpr const char* kKey = "notDuplicates";

/// FNV-1a with 64 bits, see draft-eastlake-fnv.
std::string hashOf(const std::string& text) {
    std::uint64_t hash = 0xCBF29CE484222325ULL;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
    std::ostringstream hex;
    hex << std::hex << hash;
    return hex.str();
}

std::string hashOf(const Contact& one, const Contact& other) {
    std::string first = one.addresses.empty() ? one.name : one.addresses.front();
    std::string second = other.addresses.empty() ? other.name : other.addresses.front();
    if (second < first)
        first.swap(second);
    return hashOf(first + '\n' + second);
}

}  // namespace

RejectedDuplicates::RejectedDuplicates(Settings& settings) : settings_(settings) {
    std::istringstream text(settings.read(kKey).value_or(""));
    for (std::string hash; text >> hash;)
        hashes_.insert(hash);
}

bool RejectedDuplicates::contains(const Contact& one, const Contact& other) const {
    return hashes_.contains(hashOf(one, other));
}

void RejectedDuplicates::add(const Contact& one, const Contact& other) {
    hashes_.insert(hashOf(one, other));
    save();
}

void RejectedDuplicates::clear() {
    hashes_.clear();
    save();
}

void RejectedDuplicates::save() {
    std::string text;
    for (const std::string& hash : hashes_)
        text += hash + ' ';
    settings_.write(kKey, text);
}

}  // namespace pelk
