#pragma once
// Generates a synthetic mailbox in the form that mail programs write.

#include <cstdint>
#include <string>
#include <vector>

#include "bench/people.h"
#include "bench/random.h"

namespace pelk {

/// Makes messages of 2 to 20 kB, mostly small ones. Senders and recipients follow a power law over
/// a number of people; most recipients are from the sender's own circle. The messages have names in
/// several scripts as encoded words (RFC 2047), quoted names, groups, long lists of recipients,
/// folded fields, text parts and attachments.
class MailMaker {
 public:
    explicit MailMaker(std::size_t people);

    /// Returns message `number`, the same on every run, without the "From " line of an mbox.
    std::string message(std::size_t number) const;
    /// Returns the "From " line of message `number`.
    std::string fromLine(std::size_t number) const;
    /// Returns the time at which message `number` was sent, in seconds since 1970 (UTC).
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
