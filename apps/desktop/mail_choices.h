#pragma once
// Which mail the user has chosen in the mail window, kept for the next time.

#include <string>
#include <vector>

namespace pelk {

/// The mail that is opened together.
using MailChoice = std::vector<std::string>;

class MailChoices {
 public:
    /// Keeps the choices in `file`, which need not exist; nowhere if the name is empty. Reading
    /// creates nothing.
    explicit MailChoices(std::string file) : file_(std::move(file)) {}

    /// Returns the last choices, the latest first, each once. Empty if they cannot be read.
    std::vector<MailChoice> recent() const;
    /// Puts the choice before all others, and forgets the oldest beyond eight. Throws `Error` if
    /// the file cannot be written.
    void remember(const MailChoice& choice);

 private:
    std::string file_;
};

}  // namespace pelk
