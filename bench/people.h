#pragma once
// Synthetic people: names in several scripts, one address each.

#include <string>

namespace pelk {

struct Person {
    std::string name;
    std::string address;
};

/// Returns person `number`, the same on every run. Each has a different address.
Person makePerson(std::size_t number);

}  // namespace pelk
