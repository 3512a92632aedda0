#include "tests/platform/files_fixture.h"

namespace pelk {
namespace {

TEST_F(FilesTest, writesReplacesAndRemovesAndTellsFilesAndFoldersApart) {
    const std::string bytes("a\0\r\n\xFF\x1A", 6);
    write(path, "longer than what comes after it");
    write(path, bytes);
    EXPECT_EQ(files->readWholeFile(path), bytes);
    const std::string fresh = path + ".new";
    write(fresh, "");
    files->replaceFile(fresh, path);
    EXPECT_EQ(files->readWholeFile(path), "");
    EXPECT_FALSE(files->fileExists(fresh));
    files->replaceFile(path, fresh);
    EXPECT_TRUE(files->fileExists(fresh));
    files->removeFile(fresh);
    EXPECT_FALSE(files->fileExists(fresh));

    const std::string inner = files->join(folder.path(), "inner");
    EXPECT_FALSE(files->folderExists(inner));
    files->createFolder(inner);
    EXPECT_TRUE(files->folderExists(inner));
    EXPECT_EQ(messageOf([&] { files->fileExists(inner); }), inner + " is a folder, not a file.");
    EXPECT_EQ(messageOf([&] { write(inner, ""); }), inner + " is a folder, not a file.");
    write(path, "");
    EXPECT_TRUE(files->fileExists(path));
    EXPECT_EQ(messageOf([&] { files->folderExists(path); }), path + " is a file, not a folder.");
    const std::string below = files->join(files->join(inner, "no"), "file");
    EXPECT_FALSE(files->fileExists(below) || files->folderExists(below));
}

TEST_F(FilesTest, makesTemporaryFilesThatAreNobodysBeside) {
    write(path, "old");
    const TemporaryFile one = files->createTemporary(path);
    const TemporaryFile other = files->createTemporary(path);
    EXPECT_NE(one.path, other.path);
    EXPECT_EQ(files->readWholeFile(path), "old");
    EXPECT_EQ(countIn(folder.path()), 3U);
    one.file->close();
    other.file->close();
    files->removeLeftovers(folder.path());
    EXPECT_EQ(countIn(folder.path()), 1U);
    EXPECT_TRUE(files->fileExists(path));
}

TEST_F(FilesTest, namesThePathAndTheReasonOfAFailure) {
    const std::string missing = files->join(files->join(folder.path(), "no"), "file");
    const auto expectMessage = [&](const char* what, const std::function<void()>& act) {
        const std::string start = missing + " cannot be " + what + ": ";
        const std::string message = messageOf(act);
        EXPECT_EQ(message.substr(0, start.size()), start);
        EXPECT_GT(message.size(), start.size() + 5) << message;
        EXPECT_TRUE(message.ends_with('.') && !message.ends_with("..")) << message;
    };
    expectMessage("read", [&] { files->readWholeFile(missing); });
    expectMessage("written", [&] { files->createTemporary(missing); });
    expectMessage("created", [&] { files->createFolder(missing); });
    expectMessage("removed", [&] { files->removeFile(missing); });
    expectMessage("replaced", [&] { files->replaceFile(path, missing); });
    EXPECT_NE(messageOf([&] { files->readWholeFile(folder.path()); }), "");
}

}  // namespace
}  // namespace pelk
