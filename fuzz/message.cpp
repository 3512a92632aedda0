// Fuzzes a message file in a Maildir or in a folder of `.eml` files.

#include <filesystem>

#include "fuzz/mail_target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const pelk::TemporaryFolder folder;
    static const std::string maildir = folder.path() + "/Maildir";
    static const std::string file = folder.write("Maildir/cur/1709032533.M1P100.host:2,S", "");
    static const std::string letter = folder.write("Letters/letter.eml", "");
    static const bool made = std::filesystem::create_directory(maildir + "/new") &&
                             std::filesystem::create_directory(maildir + "/tmp");
    pelk::require(made, "the temporary folder can be made");
    // The first byte selects one of the two, as mostly the same functions read both.
    const bool asLetter = size > 0 && data[0] % 2 == 0;
    pelk::replaceContent(asLetter ? letter : file, pelk::textOf(data, size));
    pelk::readMail(asLetter ? folder.path() + "/Letters" : maildir);
    return 0;
}
