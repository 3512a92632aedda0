#pragma once
// An account on a mail server as the user enters it.

#include <QString>
#include <string>

namespace pelk {

enum class Encryption { Tls, StartTls };

struct ServerEntry {
    QString server;
    QString user;
    /// Empty means the usual port.
    QString port;
    Encryption encryption = Encryption::Tls;
};

/// Returns the usual name of the server on which the mail of that e-mail address is; empty as long
/// as the address has no domain.
QString guessedServer(const QString& address);

/// Returns the port that is usual with that encryption.
int usualPort(Encryption encryption);

/// Returns the account's URL (RFC 5092), which `readImapAddress` reads. Throws `Error` when the
/// entry is not complete or wrong.
std::string urlOf(const ServerEntry& entry);

}  // namespace pelk
