#pragma once
// Where passwords are kept.

#include <optional>
#include <string>

namespace pelk {

class Keyring {
 public:
    virtual ~Keyring() = default;
    /// Returns the password that is kept under the key; nothing when there is none. Throws `Error`
    /// when the keyring cannot be used.
    virtual std::optional<std::string> find(const std::string& key) = 0;
    /// Stores the password under the key and replaces an earlier one. Throws `Error`, which does
    /// not repeat the password, when that fails.
    virtual void keep(const std::string& key, const std::string& password) = 0;
};

/// The keyring of the desktop. It may ask the user to unlock it. Only the thread of the windows may
/// use it. Until it answers, a box with a Cancel button is open.
class SystemKeyring : public Keyring {
 public:
    std::optional<std::string> find(const std::string& key) override;
    void keep(const std::string& key, const std::string& password) override;
};

}  // namespace pelk
