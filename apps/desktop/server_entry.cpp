#include "apps/desktop/server_entry.h"

#include <QUrl>

#include "platform/error.h"

namespace pelk {
namespace {

QString portPart(const ServerEntry& entry) {
    const QString text = entry.port.trimmed();
    if (text.isEmpty())
        return {};
    bool isNumber = false;
    const int port = text.toUShort(&isNumber);
    if (!isNumber || port == 0)
        throw Error("The port must be a number from 1 to 65535.");
    return port == usualPort(entry.encryption) ? QString() : QStringLiteral(":%1").arg(port);
}

/// Letters beyond ASCII become those of the domain name system (RFC 5890), and an IPv6 address gets
/// its brackets.
QString hostPart(const ServerEntry& entry) {
    const QString host = entry.server.trimmed();
    if (host.isEmpty())
        throw Error("Enter the name of the mail server.");
    QUrl url;
    url.setHost(host);
    if (url.host().isEmpty())
        throw Error("The name of the mail server is not valid.");
    const QString name = url.host(QUrl::FullyEncoded);
    return name.contains(':') ? "[" + name + "]" : name;
}

}  // namespace

QString guessedServer(const QString& address) {
    const QString domain = address.trimmed().section('@', -1);
    return address.contains('@') && !domain.isEmpty() ? "imap." + domain : QString();
}

int usualPort(Encryption encryption) {
    return encryption == Encryption::Tls ? 993 : 143;
}

std::string urlOf(const ServerEntry& entry) {
    const QString user = entry.user.trimmed();
    if (user.isEmpty())
        throw Error("Enter the user name.");
    const QString url = QLatin1String(entry.encryption == Encryption::Tls ? "imaps" : "imap") +
                        "://" + QString::fromLatin1(QUrl::toPercentEncoding(user)) + "@" +
                        hostPart(entry) + portPart(entry);
    return url.toStdString();
}

}  // namespace pelk
