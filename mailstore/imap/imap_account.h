#pragma once
// A mail account on a server, as an address names it (RFC 5092).

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

struct ImapAccount {
    enum class Login { Password, OAuth2 };

    std::string user;
    /// A name, or an address without brackets.
    std::string host;
    std::uint16_t port = 993;
    /// Whether the connection is enciphered from its first byte on; else it becomes so by STARTTLS.
    bool tls = true;
    Login login = Login::Password;
    /// The names that lead to the one folder that is meant; none for the whole account.
    std::vector<std::string> folder;

    /// What the account is called: the user's name, which mostly is an e-mail address.
    std::string name() const;
    /// The place of the account's mail (`MailFolder::place`), however it is reached.
    std::string place() const;
};

/// Percent-encoded (RFC 3986, 2.1), so that no slash is left.
std::string placePart(std::string_view name);

/// Whether the text means an account on a server and not a file.
bool isImapAddress(std::string_view text);

/// Reads "imaps://USER@HOST[:PORT][/FOLDER]", where "imap" stands for STARTTLS and a user may be
/// followed by ";AUTH=XOAUTH2". Fails with an `Error` that does not repeat the text, as it may hold
/// a password by mistake.
ImapAccount readImapAddress(std::string_view text);

/// Whether the host is this machine, by its name.
bool isLoopbackName(std::string_view host);

}  // namespace pelk
