#pragma once
// A mail account on a server, and the address that names it (RFC 5092).

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

struct ImapAccount {
    enum class Login { Password, OAuth2 };

    std::string user;
    /// A host name, or an IP address without brackets.
    std::string host;
    std::uint16_t port = 993;
    /// Whether TLS starts at once. Otherwise STARTTLS must, except on a server on this computer.
    bool tls = true;
    Login login = Login::Password;
    /// The path of the only folder to read; empty for the whole account.
    std::vector<std::string> folder;

    /// Returns the name for display: the user's e-mail address, or "user@host".
    std::string name() const;
    /// Returns the `MailFolder::place` of the account, which is the same with TLS and STARTTLS.
    std::string place() const;
};

/// Percent-encodes the name (RFC 3986, 2.1), so that it contains no slash.
std::string placePart(std::string_view name);

/// Returns whether the text is the address of a mail server rather than a path.
bool isImapAddress(std::string_view text);

/// Parses "imaps://USER@HOST[:PORT][/FOLDER]", where "imap" means STARTTLS and ";AUTH=XOAUTH2" may
/// follow the user. Throws `Error` if the text is not such an address; the message does not repeat
/// the text, which may contain a password by mistake.
ImapAccount readImapAddress(std::string_view text);

/// Returns whether the name or address of the host means this computer.
bool isLoopbackName(std::string_view host);

}  // namespace pelk
