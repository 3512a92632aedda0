#pragma once
// A real IMAP server for one test, with a separate configuration, certificate and mail.

#include <pwd.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "tests/imap/loopback.h"
#include "tests/support/temporary_folder.h"

namespace pelk {

inline void mustRun(const std::string& command) {
    if (std::system(command.c_str()) != 0)
        throw std::runtime_error("failed: " + command);
}

/// The user "jane" with the password "s3cret-word" reads the Maildir in `mail()`. Tests add mail
/// before they start the server.
class Dovecot {
 public:
    enum class Tls { No, Yes };

    TemporaryFolder folder;
    std::string certificate() const { return folder.path() + "/cert.pem"; }
    std::string mail() const { return folder.path() + "/mail"; }
    const std::uint16_t port = freePort();
    const std::uint16_t tlsPort = freePort();

    ~Dovecot() {
        if (shell_ != nullptr)
            ::pclose(shell_);
    }

    void start(Tls tls = Tls::No) {
        const std::string path = folder.path();
        std::filesystem::create_directories(mail());
        if (tls == Tls::Yes)
            mustRun(
                "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=127.0.0.1 -addext "
                "subjectAltName=IP:127.0.0.1 -keyout " +
                path + "/key.pem -out " + certificate() + " 2>/dev/null");
        const std::string config = folder.write("dovecot.conf", configuration(tls));
        mustRun("chmod 755 " + path + " && chown -R " + user() + ": " + mail());
        // The shell stops the server at the end of its input, even if the test crashes.
        shell_ = ::popen(("/usr/sbin/dovecot -F -c " + config +
                          " & server=$!; read end; kill $server; wait $server")
                             .c_str(),
                         "we");
        waitUntilItListens();
    }

 private:
    /// Dovecot requires an unprivileged user. Only root can run it as another user.
    static std::string user() {
        return ::geteuid() == 0 ? "nobody" : ::getpwuid(::geteuid())->pw_name;
    }

    void waitUntilItListens() const {
        for (int tries = 0; tries < 500; ++tries) {
            if (const int descriptor = connectTo(port); descriptor >= 0) {
                ::close(descriptor);
                return;
            }
            ::usleep(20'000);
        }
        throw std::runtime_error("Dovecot does not listen; is dovecot-imapd installed?");
    }

    std::string configuration(Tls tls) const {
        const std::string path = folder.path();
        const passwd* const who = ::getpwnam(user().c_str());
        const auto listener = [](const std::string& name, std::uint16_t number,
                                 const std::string& more) {
            return "  inet_listener " + name + " {\n    port = " + std::to_string(number) + "\n" +
                   more + "  }\n";
        };
        return "base_dir = " + path + "/run\nstate_dir = " + path + "/run\nlog_path = " + path +
               "/log\nprotocols = imap\nlisten = 127.0.0.1, 127.0.0.2\nmail_location = maildir:" +
               mail() +
               "\nfirst_valid_uid = 1\nauth_failure_delay = 0\nmail_max_userip_connections = "
               "100\n" +
               (tls == Tls::Yes ? "ssl = yes\nssl_cert = <" + certificate() + "\nssl_key = <" +
                                      path + "/key.pem\n"
                                : "ssl = no\n") +
               "default_login_user = " + user() + "\ndefault_internal_user = " + user() +
               "\nservice anvil {\n  chroot =\n}\nservice imap-login {\n  chroot =\n" +
               listener("imap", port, "") +
               listener("imaps", tls == Tls::Yes ? tlsPort : 0, "    ssl = yes\n") +
               "}\npassdb {\n  driver = static\n  args = user=jane password=s3cret-word\n}\n"
               "userdb {\n  driver = static\n  args = uid=" +
               std::to_string(who->pw_uid) + " gid=" + std::to_string(who->pw_gid) +
               " home=" + path + "/home\n}\n" +
               "namespace inbox {\n  inbox = yes\n  separator = /\n"
               "  mailbox \"Weg damit\" {\n    special_use = \\Trash\n    auto = no\n  }\n}\n";
    }

    std::FILE* shell_ = nullptr;
};

}  // namespace pelk
