#pragma once
// The platform's own files, in a folder for one test.

#include <gtest/gtest.h>

#include "tests/support/adapters.h"
#include "tests/support/message_of.h"
#include "tests/support/temporary_folder.h"

namespace pelk {

class FilesTest : public ::testing::Test {
 protected:
    TemporaryFolder folder;
    const std::unique_ptr<FileSystem> files = makeFiles();
    std::string path = files->join(folder.path(), "Änne 李.db");

    void write(const std::string& target, const std::string& content) {
        const std::unique_ptr<WritableFile> file = files->createFile(target);
        file->write(content);
        file->flushToDisk();
        file->close();
    }
};

}  // namespace pelk
