#include "mailstore/imap/imap_account.h"

#include <algorithm>
#include <charconv>

#include "mailstore/mail_text.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::string_view kTls = "imaps://";
constexpr std::string_view kStartTls = "imap://";
constexpr std::uint16_t kTlsPort = 993;
constexpr std::uint16_t kStartTlsPort = 143;
constexpr std::string_view kAuth = ";AUTH=";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

[[noreturn]] void refuse(const std::string& why) {
    throw Error("The address of the mail server cannot be used: " + why +
                ". Its form is imaps://USER@HOST[:PORT][/FOLDER], with %40 for an @ in USER.");
}

bool startsWith(std::string_view text, std::string_view start) {
    return equalsIgnoringCase(text.substr(0, start.size()), start);
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == 0x7F;
}

std::string decoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = static_cast<unsigned char>(text[i]);
        if (text[i] == '%') {
            const char* const digits = text.data() + i + 1;
            if (text.size() - i < 3 ||
                std::from_chars(digits, digits + 2, byte, 16).ptr != digits + 2)
                refuse("a % is not followed by two hexadecimal digits");
            i += 2;
        }
        result += static_cast<char>(byte);
    }
    if (std::any_of(result.begin(), result.end(), isControl))
        refuse("it contains control characters");
    return result;
}

/// Parses "USER[;AUTH=...]@" and removes it from the text.
void takeUser(std::string_view& text, ImapAccount& account) {
    const std::size_t at = text.substr(0, text.find('/')).rfind('@');
    if (at == std::string_view::npos)
        refuse("it contains no user name");
    std::string_view user = text.substr(0, at);
    text.remove_prefix(at + 1);
    if (const std::size_t auth = user.find(';'); auth != std::string_view::npos) {
        if (!equalsIgnoringCase(user.substr(auth), std::string(kAuth) + "XOAUTH2"))
            refuse("only ;AUTH=XOAUTH2 may follow the user name");
        account.login = ImapAccount::Login::OAuth2;
        user = user.substr(0, auth);
    }
    if (user.find(':') != std::string_view::npos)
        refuse("it must not contain a password; use --password-command");
    account.user = decoded(user);
    if (account.user.empty())
        refuse("it contains no user name");
}

/// Parses "HOST[:PORT]" and removes it from the text.
void takeHost(std::string_view& text, ImapAccount& account) {
    std::string_view host = text.substr(0, text.find('/'));
    text.remove_prefix(host.size());
    const std::size_t bracket = host.starts_with('[') ? host.find(']') : std::string_view::npos;
    const std::size_t colon = host.find(':', bracket == std::string_view::npos ? 0 : bracket);
    if (colon != std::string_view::npos) {
        const std::string_view port = host.substr(colon + 1);
        const auto read = std::from_chars(port.data(), port.data() + port.size(), account.port);
        if (read.ec != std::errc() || read.ptr != port.data() + port.size() || account.port == 0)
            refuse("its port is not a number from 1 to 65535");
        host = host.substr(0, colon);
    }
    if (bracket != std::string_view::npos)
        host = host.substr(1, bracket - 1);
    account.host = foldCase(decoded(host));
    if (account.host.empty())
        refuse("it contains no host name");
}

std::vector<std::string> folderNames(std::string_view path) {
    std::vector<std::string> names;
    while (!path.empty()) {
        path.remove_prefix(1);
        const std::string_view name = path.substr(0, path.find('/'));
        if (!name.empty())
            names.push_back(decoded(name));
        path.remove_prefix(name.size());
    }
    return names;
}

}  // namespace

std::string ImapAccount::name() const {
    return user.find('@') == std::string::npos ? user + "@" + host : user;
}

std::string ImapAccount::place() const {
    const bool usual = port == kTlsPort || port == kStartTlsPort;
    return std::string(kStartTls) + placePart(user) + "@" + placePart(host) +
           (usual ? "" : ":" + std::to_string(port));
}

std::string placePart(std::string_view name) {
    std::string part;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (c != '/' && c != '%' && c != '@' && !isControl(c)) {
            part += c;
            continue;
        }
        part += '%';
        part += kHexDigits[byte / 16];
        part += kHexDigits[byte % 16];
    }
    return part;
}

bool isImapAddress(std::string_view text) {
    return startsWith(text, kTls) || startsWith(text, kStartTls);
}

ImapAccount readImapAddress(std::string_view text) {
    ImapAccount account;
    account.tls = startsWith(text, kTls);
    account.port = account.tls ? kTlsPort : kStartTlsPort;
    text.remove_prefix((account.tls ? kTls : kStartTls).size());
    takeUser(text, account);
    takeHost(text, account);
    account.folder = folderNames(text);
    return account;
}

bool isLoopbackName(std::string_view host) {
    return host == "localhost" || host == "::1" ||
           (host.starts_with("127.") &&
            host.find_first_not_of("0123456789.") == std::string_view::npos);
}

}  // namespace pelk
