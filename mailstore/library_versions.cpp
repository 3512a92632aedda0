#include "mailstore/library_versions.h"

#include <lzma.h>
#include <sqlite3.h>
#include <zlib.h>
#include <zstd.h>

#include "mailstore/gmime_ready.h"

namespace pelk {

std::vector<std::string> mailLibraries() {
    return {"GMime " + std::to_string(gmime_major_version) + "." +
                std::to_string(gmime_minor_version) + "." + std::to_string(gmime_micro_version),
            std::string("SQLite ") + sqlite3_libversion(), std::string("zlib ") + zlibVersion(),
            std::string("liblzma ") + lzma_version_string(),
            std::string("Zstandard ") + ZSTD_versionString()};
}

}  // namespace pelk
