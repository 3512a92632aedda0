// Writes synthetic mail. Usage: make_mail mbox|maildir PATH PEOPLE MESSAGES [DISTINCT]. With
// DISTINCT, the messages repeat after that many, so that their people and relations do not grow.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "bench/mail_maker.h"

namespace pelk {
namespace {

void writeMbox(const char* path, const MailMaker& maker, std::size_t messages,
               std::size_t distinct) {
    std::ofstream file(path, std::ios::binary);
    for (std::size_t i = 0; i < messages; ++i)
        file << maker.fromLine(i % distinct) << maker.message(i % distinct) << '\n';
}

void writeMaildir(const std::filesystem::path& path, const MailMaker& maker, std::size_t messages,
                  std::size_t distinct) {
    for (const char* part : {"cur", "new", "tmp"})
        std::filesystem::create_directories(path / part);
    for (std::size_t i = 0; i < messages; ++i) {
        const std::string name =
            std::to_string(MailMaker::timeOf(i)) + ".M" + std::to_string(i) + ".host:2,S";
        std::ofstream(path / "cur" / name, std::ios::binary) << maker.message(i % distinct);
    }
}

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fprintf(stderr, "make_mail mbox|maildir PATH PEOPLE MESSAGES [DISTINCT]\n");
        return 2;
    }
    const std::size_t messages = std::strtoul(argv[4], nullptr, 10);
    const pelk::MailMaker maker(std::strtoul(argv[3], nullptr, 10));
    const std::size_t distinct = argc > 5 ? std::strtoul(argv[5], nullptr, 10) : messages;
    if (std::string(argv[1]) == "mbox")
        pelk::writeMbox(argv[2], maker, messages, distinct);
    else
        pelk::writeMaildir(argv[2], maker, messages, distinct);
}
