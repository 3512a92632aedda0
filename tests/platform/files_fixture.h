#pragma once
// The platform's own files, in a folder for one test.

#include <gtest/gtest.h>

#include "tests/support/adapters.h"
#include "tests/support/message_of.h"
#include "tests/support/temporary_folder.h"

namespace pelk {

/// Counts the files and folders in a folder.
inline std::size_t countIn(const std::string& folder) {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(std::filesystem::u8path(folder)), {}));
}

class FilesTest : public ::testing::Test {
 protected:
    TemporaryFolder folder;
    const std::unique_ptr<FileSystem> files = makeFiles();
    std::string path = files->join(folder.path(), "Änne 李.db");

    void write(const std::string& target, const std::string& content) {
        TemporaryFile fresh = files->createTemporary(target);
        fresh.file->write(content);
        fresh.file->flushToDisk();
        fresh.file->close();
        files->replaceFile(fresh.path, target);
    }
};

}  // namespace pelk
