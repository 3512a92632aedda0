// Compares the speed of a mail server's scan with a client that requests the same data and only
// counts bytes. Starts its own server. Usage: imap_speed

#include <sys/resource.h>

#include <cstdio>
#include <string>

#include "bench/mail_maker.h"
#include "bench/measure.h"
#include "bench/scan_mail.h"
#include "mailstore/imap/imap_session.h"
#include "tests/imap/dovecot.h"

namespace pelk {
namespace {

constexpr std::size_t kMessages = 10'000;

void makeMail(const Dovecot& dovecot) {
    const MailMaker maker(2'000);
    for (std::size_t number = 0; number < kMessages; ++number)
        dovecot.folder.write("mail/cur/" + std::to_string(MailMaker::timeOf(number)) + "." +
                                 std::to_string(number) + ".host:2,S",
                             maker.message(number));
}

void scanServer(std::uint16_t port) {
    ImapServerOptions options;
    options.secret = [] { return "s3cret-word"; };
    const auto session = openImapSession(
        readImapAddress("imap://jane@127.0.0.1:" + std::to_string(port)), std::move(options), {});
    scanMail(*makeEmptyDatabase(), *session);
}

/// Sends all commands at once and returns the number of bytes up to the last answer.
std::size_t countBytes(std::uint16_t port) {
    const Socket server(connectTo(port));
    server.send(
        "1 LOGIN jane s3cret-word\r\n2 EXAMINE INBOX\r\n3 UID FETCH 1:* (UID INTERNALDATE FLAGS "
        "BODYSTRUCTURE BODY.PEEK[HEADER.FIELDS (Message-ID From Sender Reply-To To Cc Bcc Subject "
        "Date Content-Type X-Gmail-Labels List-Post X-Mailing-List X-BeenThere List-Id "
        "List-Unsubscribe Precedence Auto-Submitted)])\r\n");
    std::size_t count = 0;
    std::string end;
    for (std::string bytes; end.find("\r\n3 OK") == std::string::npos;) {
        bytes = server.receive();
        if (bytes.empty())
            std::exit(1);
        count += bytes.size();
        end = end.substr(end.size() - std::min<std::size_t>(end.size(), 6)) + bytes;
    }
    return count;
}

void compare() {
    Dovecot dovecot;
    makeMail(dovecot);
    dovecot.start();
    const double bytes = static_cast<double>(countBytes(dovecot.port)) / kMessages;
    const auto times =
        medians(5, {{[&] { scanServer(dovecot.port); }}, {[&] { countBytes(dovecot.port); }}});
    print({"Scan of 10,000 messages on an IMAP server", "warm", times[0],
           "one command for the same, counting bytes", times[1], "ms", 2});
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::fprintf(stderr, "%.0f messages a second, %.0f bytes a message, %ld MB at most\n",
                 1000 * kMessages / times[0], bytes, usage.ru_maxrss / 1024);
}

}  // namespace
}  // namespace pelk

int main() {
    pelk::compare();
}
