#pragma once
// Remembers which mail the user opened in the mail window.

#include <string>
#include <vector>

namespace pelk {

/// Paths that are opened together, or the URL of a mail server.
using MailChoice = std::vector<std::string>;

class MailChoices {
 public:
    /// Keeps the choices in `file`, which need not exist; nowhere if the name is empty. Reading
    /// creates nothing.
    explicit MailChoices(std::string file) : file_(std::move(file)) {}

    const std::string& file() const { return file_; }
    /// Returns the last choices, the latest first, each once. Empty if they cannot be read.
    std::vector<MailChoice> recent() const;
    /// Adds the choice as the latest one, and removes the oldest if there are more than eight.
    /// Throws `Error` if the file cannot be written.
    void remember(const MailChoice& choice);

 private:
    std::string file_;
};

}  // namespace pelk
