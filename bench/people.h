#pragma once
// Made-up people: names in several scripts, one address each.

#include <string>

namespace pelk {

struct Person {
    std::string name;
    std::string address;
};

/// Person `number`, the same on every run; no two have one address.
Person makePerson(std::size_t number);

}  // namespace pelk
