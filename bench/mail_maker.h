#pragma once
// A made-up mailbox as mail programs write it.

#include <cstdint>
#include <string>
#include <vector>

#include "bench/people.h"
#include "bench/random.h"

namespace pelk {

/// Messages of 2 to 20 kB, small ones more often. Who writes and who is written to follows a power
/// law over a number of people; most recipients are from the sender's own circle. There are names
/// in several scripts as encoded words, quoted names, groups, long lists of recipients, folded
/// fields, text parts and attachments.
class MailMaker {
 public:
    explicit MailMaker(std::size_t people);

    /// Message `number`, the same on every run, without the line that parts messages in an mbox.
    std::string message(std::size_t number) const;
    /// That line, which tells of the same time.
    std::string fromLine(std::size_t number) const;
    /// When message `number` was sent, in seconds since 1970.
    static std::int64_t timeOf(std::size_t number);

 private:
    const Person& drawFriend(std::size_t sender, Random& random) const;
    std::string header(std::size_t number, Random& random) const;
    std::string addressField(std::size_t sender, std::size_t count, Random& random) const;
    std::string body(std::size_t size, Random& random) const;

    std::vector<Person> people_;
    std::string text_;
    std::string base64_;
};

}  // namespace pelk
