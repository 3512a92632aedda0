#pragma once
// An account on a mail server as the user enters it.

#include <QString>
#include <string>

namespace pelk {

enum class Encryption { Tls, StartTls };

struct ServerEntry {
    QString server;
    QString user;
    /// Empty for the usual port.
    QString port;
    Encryption encryption = Encryption::Tls;
};

/// Returns the usual name of the mail server of an e-mail address; empty text if the address has no
/// domain.
QString guessedServer(const QString& address);

/// Returns the usual port for that encryption.
int usualPort(Encryption encryption);

/// Returns the account's URL (RFC 5092), which `readImapAddress` reads. Throws `Error` when the
/// entry is incomplete or wrong.
std::string urlOf(const ServerEntry& entry);

}  // namespace pelk
