#include "mailstore/imap/imap_connection.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <algorithm>
#include <limits>
#include <new>

#include "mailstore/imap/fetch_answer.h"
#include "mailstore/imap/fetched_data.h"
#include "mailstore/imap/guarded_stream.h"
#include "mailstore/imap/imap_faults.h"
#include "mailstore/mail_text.h"
#include "platform/mail_automation.h"

namespace pelk {
namespace {

/// The fields that determine the people, time, kind and fingerprint of a message, and those about
/// mailing lists and programs, which few messages have. The server itself says when a message came,
/// so `Received` is not among them: it is longer than all others together.
const std::string& headerFields() {
    static const std::string fields = [] {
        std::string text =
            "BODY.PEEK[HEADER.FIELDS (Message-ID From Sender Reply-To To Cc Bcc Subject Date "
            "Content-Type X-Gmail-Labels";
        for (const std::string_view field : kAutomationFields)
            (text += ' ') += field;
        return text + ")]";
    }();
    return fields;
}

constexpr const char* kHeaderStart = "<0.262144>";
constexpr std::size_t kPartStart = 64UL << 10;
constexpr std::size_t kReadSize = 64UL << 10;

void keepMailOffTheDisk() {
    // libetpan stores texts above this size in a temporary file.
    static const bool done = [] {
        mmap_string_set_ceil(std::numeric_limits<std::size_t>::max());
        return true;
    }();
    static_cast<void>(done);
}

std::string base64(const std::string& bytes) {
    std::string text(4 * ((bytes.size() + 2) / 3) + 1, '\0');
    text.resize(static_cast<std::size_t>(EVP_EncodeBlock(
        reinterpret_cast<unsigned char*>(text.data()),
        reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()))));
    return text;
}

/// A text that is wiped from memory on destruction.
struct Secret {
    std::string text;
    ~Secret() { OPENSSL_cleanse(text.data(), text.size()); }
};

std::string textOf(const UidRange& range) {
    return std::to_string(range.first) + ":" + std::to_string(range.last);
}

std::string fetchCommand(const UidRange& range, Detail detail) {
    const bool whole = detail == Detail::Whole;
    return "UID FETCH " + textOf(range) + " (UID INTERNALDATE FLAGS " +
           (whole ? "BODYSTRUCTURE " : "") + headerFields() + (whole ? "" : kHeaderStart) + ")";
}

struct SessionFree {
    void operator()(mailimap* session) const { mailimap_free(session); }
};

}  // namespace

class ImapConnection::Talk {
 public:
    Talk(const ImapAccount& account, const std::string& secret, const Patience& patience)
        : account_(account), network_(account.host, account.port, patience) {
        keepMailOffTheDisk();
        if (account_.tls)
            network_.startTls();
        session_.reset(mailimap_new(0, nullptr));
        if (!session_)
            throw std::bad_alloc();
        try {
            greet();
            if (!loggedIn_)
                logIn(secret);
            command("CAPABILITY", "list its capabilities");
        } catch (...) {
            stream_.close();
            throw;
        }
    }

    mailimap& session() { return *session_; }
    const mailimap_response_info& answer() const { return *session_->imap_response_info; }
    bool can(const char* extension) const {
        return mailimap_has_extension(session_.get(), extension) != 0;
    }

    /// Sends a command other than FETCH and receives its answer.
    void command(const std::string& text, const std::string& purpose) {
        finishAhead();
        send(text, purpose);
        receive(purpose);
    }

    /// Sends a FETCH command and receives the messages. Sends the command `next`, unless it is
    /// empty, before it receives them, so that the server need not wait. The next call should be
    /// for `next`.
    std::vector<FetchedHeader> fetch(const std::string& text, const std::string& next,
                                     const std::string& purpose) {
        if (ahead_ != text) {
            finishAhead();
            send(text, purpose);
        }
        ahead_ = next;
        if (!next.empty())
            send(next, purpose);
        return receiveMessages(purpose);
    }

    /// Discards the answer to a command that was sent ahead and is not needed after all.
    void finishAhead() {
        if (!std::exchange(ahead_, {}).empty())
            receiveMessages("show messages");
    }

    /// Calls a function of libetpan that sends a command and receives its answer.
    template <typename Call>
    void call(const Call& call, const std::string& purpose) {
        finishAhead();
        stream_.beginAnswer();
        const int result = call(session_.get());
        sentTag_ = session_->imap_tag;
        check(result, purpose);
    }

    /// Throws the fault that a result code of libetpan means. `purpose` completes "The server
    /// refuses to".
    void check(int result, const std::string& purpose) {
        switch (result) {
            case MAILIMAP_NO_ERROR:
            case MAILIMAP_NO_ERROR_AUTHENTICATED:
            case MAILIMAP_NO_ERROR_NON_AUTHENTICATED:
                return;
            case MAILIMAP_ERROR_MEMORY:
                stream_.close();
                throw std::bad_alloc();
            case MAILIMAP_ERROR_STREAM:
            case MAILIMAP_ERROR_FATAL:
            case MAILIMAP_ERROR_DONT_ACCEPT_CONNECTION:
                failLost(lastText());
            case MAILIMAP_ERROR_PARSE:
            case MAILIMAP_ERROR_PROTOCOL:
            case MAILIMAP_ERROR_NEEDS_MORE_DATA:
                failBroken(purpose, lastText());
            default:
                stream_.throwFault();
                if (secret_ != nullptr)
                    throw LoginRefused(refusal(purpose, lastText()));
                throw Error(refusal(purpose, lastText()));
        }
    }

 private:
    /// libetpan's own function appends a blank to the command, which a server may reject.
    void send(const std::string& text, const std::string& purpose) {
        const Secret line{std::to_string(++sentTag_) + " " + text + "\r\n"};
        mailstream* const stream = session_->imap_stream;
        if (mailstream_write(stream, line.text.data(), line.text.size()) < 0 ||
            mailstream_flush(stream) < 0)
            check(MAILIMAP_ERROR_STREAM, purpose);
    }

    /// Receives the answer to the oldest unanswered command. libetpan expects an answer to carry
    /// `imap_tag`, although later commands may have been sent.
    void receive(const std::string& purpose) {
        stream_.beginAnswer();
        ++session_->imap_tag;
        mailimap_response* answer = nullptr;
        check(mailimap_read_line(session_.get()) == nullptr
                  ? MAILIMAP_ERROR_STREAM
                  : mailimap_parse_response(session_.get(), &answer),
              purpose);
        const bool done = answer->rsp_resp_done->rsp_data.rsp_tagged->rsp_cond_state->rsp_type ==
                          MAILIMAP_RESP_COND_STATE_OK;
        mailimap_response_free(answer);
        if (session_->imap_response_info == nullptr)
            throw std::bad_alloc();
        check(done ? MAILIMAP_NO_ERROR : MAILIMAP_ERROR_CUSTOM_COMMAND, purpose);
    }

    /// Receives the answer to the oldest unanswered command, which is a FETCH.
    std::vector<FetchedHeader> receiveMessages(const std::string& purpose) {
        stream_.beginAnswer();
        FetchAnswer answer;
        try {
            answer = readFetchAnswer(responses_, std::to_string(++session_->imap_tag),
                                     [&] { return readMore(); });
        } catch (const BrokenAnswer&) {
            failBroken(purpose, {});
        }
        if (answer.end == FetchAnswer::End::Closed)
            failLost(answer.text);
        if (ahead_.empty())
            stream_.giveBack(responses_.takeRest());
        if (answer.end == FetchAnswer::End::Refused)
            throw Error(refusal(purpose, answer.text));
        return std::move(answer.messages);
    }

    /// Returns bytes that libetpan has read and not used, otherwise bytes from the network.
    std::string_view readMore() {
        mailstream* const stream = session_->imap_stream;
        const std::size_t unused = std::min(stream->read_buffer_len, buffer_.size());
        const ssize_t count = unused > 0 ? mailstream_read(stream, buffer_.data(), unused)
                                         : stream_.read(buffer_.data(), buffer_.size());
        if (count <= 0)
            failLost({});
        return {buffer_.data(), static_cast<std::size_t>(count)};
    }

    std::string server() const { return "The mail server " + account_.host; }

    [[noreturn]] void failLost(std::string_view text) {
        stream_.close();
        stream_.throwFault();
        throw ConnectionLost(server() + " has ended the connection" + said(text) + ".");
    }

    [[noreturn]] void failBroken(const std::string& purpose, std::string_view text) {
        stream_.close();
        stream_.throwFault();
        throw BrokenAnswer(server() + " gives no usable answer when asked to " + purpose +
                           said(text) + ".");
    }

    std::string refusal(const std::string& purpose, std::string_view text) const {
        return server() + " refuses to " + purpose + said(text) + ".";
    }

    /// Returns what the server said to the last command that libetpan handled.
    std::string_view lastText() const {
        const char* const text = session_->imap_response;
        return text == nullptr ? std::string_view() : text;
    }

    /// Returns the reason that the server gave, unless it repeats the secret.
    std::string said(std::string_view text) const {
        std::string reason = decodeText(text);
        // The sentence around the reason ends with a full stop.
        while (reason.ends_with('.'))
            reason.pop_back();
        const bool tellsSecret =
            secret_ != nullptr && !secret_->empty() && reason.find(*secret_) != std::string::npos;
        return reason.empty() || tellsSecret ? "" : ": " + reason;
    }

    void greet() {
        const int result = mailimap_connect(session_.get(), stream_.open());
        check(result, "greet");
        loggedIn_ = result == MAILIMAP_NO_ERROR_AUTHENTICATED;
        if (loggedIn_ && !account_.tls)
            requireLoopback();
        else if (!loggedIn_)
            command("CAPABILITY", "list its capabilities");
        if (!account_.tls && !loggedIn_)
            encrypt();
    }

    void encrypt() {
        if (!can("STARTTLS")) {
            requireLoopback();
            return;
        }
        command("STARTTLS", "encrypt the connection");
        // Data after the answer came unencrypted, so an attacker may have inserted it.
        if (session_->imap_stream->read_buffer_len != 0)
            throw Error(server() + " sends more than it may before the connection is encrypted.");
        network_.startTls();
        command("CAPABILITY", "list its capabilities");
    }

    void requireLoopback() const {
        if (!isLoopbackName(account_.host) || !network_.reachesLoopback())
            throw Error(server() +
                        " does not encrypt the connection (STARTTLS). Pelk uses only encrypted "
                        "connections; try imaps:// instead of imap://.");
    }

    void logIn(const std::string& secret) {
        if (secret.empty() || secret.find_first_of(std::string("\0\r\n", 3)) != std::string::npos)
            throw LoginRefused("The password for " + server().substr(4) +
                               " is empty or contains a control character.");
        secret_ = &secret;
        const std::string purpose = "let " + account_.user + " in";
        const char* const user = account_.user.c_str();
        if (account_.login == ImapAccount::Login::OAuth2)
            call(
                [&](mailimap* session) {
                    return mailimap_oauth2_authenticate(session, user, secret.c_str());
                },
                purpose);
        else if (mailimap_has_authentication(session_.get(), "PLAIN") != 0 && can("SASL-IR"))
            authenticatePlain(secret, purpose);
        else if (can("LOGINDISABLED"))
            throw Error(server() + " does not accept passwords.");
        else
            call([&](mailimap* session) { return mailimap_login(session, user, secret.c_str()); },
                 purpose);
        secret_ = nullptr;
    }

    /// RFC 4616. Unlike LOGIN, it allows characters outside ASCII.
    void authenticatePlain(const std::string& secret, const std::string& purpose) {
        const std::string nul(1, '\0');
        const Secret plain{nul + account_.user + nul + secret};
        const Secret line{"AUTHENTICATE PLAIN " + base64(plain.text)};
        command(line.text, purpose);
        session_->imap_state = MAILIMAP_STATE_AUTHENTICATED;
    }

    const ImapAccount account_;
    NetworkStream network_;
    GuardedStream stream_{network_};
    std::unique_ptr<mailimap, SessionFree> session_;
    bool loggedIn_ = false;
    int sentTag_ = 0;
    /// The command that was sent ahead; empty if none was.
    std::string ahead_;
    const std::string* secret_ = nullptr;
    std::vector<char> buffer_ = std::vector<char>(kReadSize);
    ResponseSplitter responses_;
};

ImapConnection::ImapConnection(const ImapAccount& account, const std::string& secret,
                               const Patience& patience)
    : talk_(std::make_unique<Talk>(account, secret, patience)) {}

ImapConnection::~ImapConnection() = default;

std::vector<ListedMailbox> ImapConnection::list() {
    const bool tellsPurposes = talk_->can("SPECIAL-USE") && talk_->can("LIST-EXTENDED");
    talk_->command(tellsPurposes ? "LIST \"\" \"*\" RETURN (SPECIAL-USE)" : "LIST \"\" \"*\"",
                   "list its folders");
    return mailboxesIn(talk_->answer());
}

ExaminedMailbox ImapConnection::examine(const std::string& mailbox) {
    const std::string shown = decodeText(mailbox);
    talk_->call([&](mailimap* session) { return mailimap_examine(session, mailbox.c_str()); },
                "open the folder " + shown);
    const mailimap_selection_info& info = *talk_->session().imap_selection_info;
    return {info.sel_uidvalidity, info.sel_uidnext, info.sel_exists};
}

std::vector<std::uint32_t> ImapConnection::uidsAbove(std::uint32_t uid) {
    if (uid == std::numeric_limits<std::uint32_t>::max())
        return {};
    talk_->command("UID SEARCH UID " + std::to_string(uid + 1) + ":* UNDELETED",
                   "list its messages");
    std::vector<std::uint32_t> uids = numbersIn(talk_->answer());
    std::erase_if(uids, [uid](std::uint32_t found) { return found <= uid; });
    std::sort(uids.begin(), uids.end());
    uids.erase(std::unique(uids.begin(), uids.end()), uids.end());
    return uids;
}

std::vector<FetchedHeader> ImapConnection::headers(const UidRange& range, Detail detail,
                                                   const std::optional<UidRange>& next) {
    return talk_->fetch(fetchCommand(range, detail), next ? fetchCommand(*next, detail) : "",
                        "show the messages " + textOf(range));
}

std::vector<FetchedHeader> ImapConnection::firstHeaders(std::uint32_t count) {
    return talk_->fetch(
        "FETCH 1:" + std::to_string(count) + " (UID FLAGS BODYSTRUCTURE " + headerFields() + ")",
        {}, "show its first messages");
}

std::string ImapConnection::partStart(std::uint32_t uid, const std::string& section) {
    for (FetchedHeader& header :
         talk_->fetch("UID FETCH " + std::to_string(uid) + " (UID BODY.PEEK[" + section + "]<0." +
                          std::to_string(kPartStart) + ">)",
                      {}, "show a part of message " + std::to_string(uid)))
        if (header.uid == uid)
            return std::move(header.text);
    return {};
}

}  // namespace pelk
