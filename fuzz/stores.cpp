// The files of mail programs that need a parser of their own: an .emlx file, the database of Geary
// and a compressed mbox.

#include <array>

#include "fuzz/mail_target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    static const pelk::TemporaryFolder folder;
    static const std::array<std::string, 3> files = {folder.write("A.mbox/Messages/1.emlx", ""),
                                                     folder.write("account/geary.db", ""),
                                                     folder.write("packed", "")};
    // The first byte selects the format; it is not part of the file.
    const std::string& file = files[data[0] % files.size()];
    pelk::replaceContent(file, pelk::textOf(data + 1, size - 1));
    pelk::readMail(file == files[0] ? folder.path() + "/A.mbox" : file);
    return 0;
}
