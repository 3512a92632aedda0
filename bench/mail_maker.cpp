#include "bench/mail_maker.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace pelk {
namespace {

constexpr std::size_t kPoolSize = 1UL << 18;
constexpr std::size_t kSmallest = 2000;
constexpr std::size_t kCircle = 60;
constexpr const char* kBase64 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::array<const char*, 32> kWords = {
    "the",      "meeting",  "from",  "tomorrow", "please", "find",   "attached",   "which",
    "calendar", "report",   "for",   "offer",    "we",     "will",   "naturally,", "see.",
    "a",        "thousand", "of",    "them",     "he/she", "wrote:", "and",        "then",
    "later",    "perhaps",  "until", "Friday.",  "With",   "kind",   "regards,",   "you"};
constexpr const char* kLink = "https://www.example.org/calendar/2026\n";

bool isAscii(const std::string& text) {
    for (const char c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

std::string base64(const std::string& bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned group = 0;
        for (std::size_t k = i; k < i + 3; ++k)
            group = group << 8U | (k < bytes.size() ? static_cast<unsigned char>(bytes[k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= bytes.size() ? kBase64[group >> (18 - 6 * k) & 63U] : '=';
    }
    return text;
}

std::string quotedPrintable(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        std::array<char, 4> code{};
        std::snprintf(code.data(), code.size(), "=%02X", static_cast<unsigned char>(c));
        text += c == ' '                               ? "_"
                : static_cast<unsigned char>(c) < 0x80 ? std::string(1, c)
                                                       : code.data();
    }
    return text;
}

std::string headerText(const std::string& text, Random& random) {
    if (isAscii(text))
        return text;
    return random.chance(0.5) ? "=?UTF-8?B?" + base64(text) + "?="
                              : "=?utf-8?Q?" + quotedPrintable(text) + "?=";
}

std::string mailbox(const Person& person, Random& random) {
    if (random.chance(0.2))
        return person.address;
    const std::size_t blank = person.name.find(' ');
    if (isAscii(person.name) && random.chance(0.3))
        return '"' + person.name.substr(blank + 1) + ", " + person.name.substr(0, blank) + "\" <" +
               person.address + '>';
    return headerText(person.name, random) + " <" + person.address + '>';
}

std::string timeText(std::size_t number, const char* format) {
    const std::time_t time = MailMaker::timeOf(number);
    std::tm utc{};
    ::gmtime_r(&time, &utc);
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &utc)};
}

/// Builds lines of about `width` characters from the strings that `next` returns.
template <typename Next>
std::string makeLines(std::size_t width, const Next& next) {
    std::string text;
    for (std::size_t line = 0; text.size() < kPoolSize; text += next())
        if (text.size() >= line + width) {
            text += '\n';
            line = text.size();
        }
    return text;
}

/// Returns about `size` bytes of whole lines from a pool.
std::string linesOf(const std::string& pool, std::size_t size, Random& random) {
    const std::size_t begin = pool.find('\n', random.below(pool.size() / 2)) + 1;
    return pool.substr(begin, pool.find('\n', begin + size) + 1 - begin);
}

}  // namespace

MailMaker::MailMaker(std::size_t people) {
    for (std::size_t number = 0; number < people; ++number)
        people_.push_back(makePerson(number));
    Random random;
    text_ = makeLines(66, [&] { return kWords[random.below(kWords.size())] + std::string(" "); });
    base64_ = makeLines(76, [&] { return std::string(1, kBase64[random.below(64)]); });
}

std::int64_t MailMaker::timeOf(std::size_t number) {
    constexpr std::int64_t kFirst = 1104537600;  // 2005-01-01
    constexpr std::int64_t kStep = 5400;
    return kFirst + static_cast<std::int64_t>(number) * kStep;
}

std::string MailMaker::fromLine(std::size_t number) const {
    return "From sender@example.org " + timeText(number, "%a %b %e %H:%M:%S %Y") + '\n';
}

std::string MailMaker::message(std::size_t number) const {
    Random random(number);
    const double size = kSmallest * std::pow(10, random.fraction());
    std::string text = header(number, random);
    const auto whole = static_cast<std::size_t>(size);
    return text + body(whole > text.size() ? whole - text.size() : 0, random);
}

const Person& MailMaker::drawFriend(std::size_t sender, Random& random) const {
    const std::size_t friendOf =
        random.chance(0.7) ? sender + 1 + random.rank(kCircle) : random.rank(people_.size());
    return people_[friendOf % people_.size()];
}

std::string MailMaker::addressField(std::size_t sender, std::size_t count, Random& random) const {
    std::string field = mailbox(drawFriend(sender, random), random);
    for (std::size_t i = 1; i < count; ++i)
        field += (i % 2 == 0 ? ",\n\t" : ", ") + mailbox(drawFriend(sender, random), random);
    return random.chance(0.03) ? "Team " + std::to_string(sender) + ": " + field + ";" : field;
}

std::string MailMaker::header(std::size_t number, Random& random) const {
    const std::size_t sender = random.rank(people_.size());
    const Person& author = people_[sender];
    const std::string id = std::to_string(number) + "." + std::to_string(random.below(1000000));
    const std::string date = timeText(number, "%a, %d %b %Y %H:%M:%S +0000");
    std::string text = "Return-Path: <" + author.address + ">\n";
    for (int hop = 1; hop <= 3; ++hop)
        text += "Received: from host" + std::to_string(hop) +
                ".example.org (host.example.org [192.0.2." + std::to_string(hop) +
                "])\n\tby mx.example.org with ESMTPS id " + id + "\n\tfor <" + author.address +
                ">; " + date + '\n';
    text += "DKIM-Signature: v=1; a=rsa-sha256; c=relaxed/relaxed; d=example.org; s=mail;\n\tb=" +
            base64_.substr(random.below(kPoolSize / 2) / 77 * 77, 76) + "\n";
    text += "Message-ID: <" + id + "@example.org>\nDate: " + date +
            "\nFrom: " + mailbox(author, random) + '\n';
    if (random.chance(0.05))
        text += "Reply-To: " + mailbox(author, random) + '\n';
    text +=
        "To: " + addressField(sender, 1 + random.rank(random.chance(0.02) ? 40 : 4), random) + '\n';
    if (random.chance(0.3))
        text += "Cc: " + addressField(sender, 1 + random.rank(6), random) + '\n';
    return text + "Subject: " + headerText("Re: " + drawFriend(sender, random).name, random) +
           "\nX-Mailer: Example Mail 1.0\nMIME-Version: 1.0\n";
}

std::string MailMaker::body(std::size_t size, Random& random) const {
    if (random.chance(0.7))
        return "Content-Type: text/plain; charset=utf-8\n\n" + linesOf(text_, size, random) +
               (random.chance(0.02) ? kLink : "");
    return "Content-Type: multipart/mixed; boundary=\"=_part\"\n\n--=_part\n"
           "Content-Type: text/plain; charset=utf-8\n\n" +
           linesOf(text_, size / 4, random) +
           "--=_part\nContent-Type: application/octet-stream; name=plan.bin\n"
           "Content-Transfer-Encoding: base64\n\n" +
           linesOf(base64_, size / 2, random) + "--=_part--\n";
}

}  // namespace pelk
