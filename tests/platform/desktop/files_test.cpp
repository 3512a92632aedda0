#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>

#include "platform/desktop/desktop_shell.h"
#include "platform/desktop/folder_lock.h"
#include "platform/desktop/posix_files.h"
#include "tests/support/temporary_folder.h"

namespace pelk {
namespace {

int modeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? static_cast<int>(status.st_mode & 0777) : -1;
}

std::string messageOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

class FilesTest : public ::testing::Test {
 protected:
    TemporaryFolder folder;
    PosixFiles files;
    std::string path = files.join(folder.path(), "some.db");

    void write(const std::string& target, const std::string& content) {
        const std::unique_ptr<WritableFile> file = files.createFile(target);
        file->write(content);
        file->flushToDisk();
        file->close();
    }
};

TEST_F(FilesTest, writesReplacesAndRemovesFilesOfTheirOwnerAlone) {
    const std::string bytes("a\0\r\n\xFF", 5);
    write(path, "longer than what comes after it");
    write(path, bytes);
    EXPECT_EQ(files.readWholeFile(path), bytes);
    EXPECT_EQ(modeOf(path), 0600);
    const std::string fresh = path + ".new";
    write(fresh, "new");
    files.replaceFile(fresh, path);
    EXPECT_EQ(files.readWholeFile(path), "new");
    EXPECT_FALSE(files.fileExists(fresh));
    files.removeFile(path);
    EXPECT_FALSE(files.fileExists(path));
}

TEST_F(FilesTest, tellsFilesAndFoldersApart) {
    const std::string inner = files.join(folder.path(), "inner");
    EXPECT_FALSE(files.folderExists(inner));
    files.createFolder(inner);
    EXPECT_EQ(modeOf(inner), 0700);
    EXPECT_TRUE(files.folderExists(inner));
    EXPECT_FALSE(files.fileExists(inner));
    write(path, "");
    EXPECT_TRUE(files.fileExists(path));
    EXPECT_FALSE(files.folderExists(path));
}

TEST_F(FilesTest, namesThePathAndTheReasonOfAFailure) {
    const std::string missing = files.join(folder.path(), "no/file");
    const std::string reason = ": No such file or directory.";
    EXPECT_EQ(messageOf([&] { files.readWholeFile(missing); }),
              missing + " cannot be read" + reason);
    EXPECT_EQ(messageOf([&] { files.createFile(missing); }),
              missing + " cannot be written" + reason);
    EXPECT_EQ(messageOf([&] { files.createFolder(missing); }),
              missing + " cannot be created" + reason);
    EXPECT_EQ(messageOf([&] { files.removeFile(missing); }),
              missing + " cannot be removed" + reason);
    EXPECT_EQ(messageOf([&] { files.replaceFile(path, missing); }),
              missing + " cannot be replaced" + reason);
    EXPECT_NE(messageOf([&] { files.readWholeFile(folder.path()); }), "");
}

TEST_F(FilesTest, reportsADiskThatIsFull) {
    // A limit on the size of files stands in for a disk of that size.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limit{1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_EQ(messageOf([&] { write(path, std::string(5000, 'x')); }),
              path + " cannot be written: File too large.");
    ::setrlimit(RLIMIT_FSIZE, &before);
}

TEST(FolderLock, keepsASecondProgramOut) {
    const TemporaryFolder folder;
    std::optional<FolderLock> lock(std::in_place, folder.path());
    EXPECT_EQ(messageOf([&] { FolderLock second(folder.path()); }),
              "Another Pelk is using the database in " + folder.path() + ". Close it first.");
    lock.reset();
    EXPECT_NO_THROW(FolderLock(folder.path()));
    EXPECT_THROW(FolderLock(folder.path() + "/none"), Error);
}

TEST(DesktopShell, makesTheDataFolderForItsOwnerAlone) {
    const TemporaryFolder home;
    ::setenv("HOME", home.path().c_str(), 1);
    ::unsetenv("XDG_DATA_HOME");
    const std::string usual = home.path() + "/.local/share";
    EXPECT_EQ(DesktopShell("").applicationDataFolder(), usual);
    EXPECT_EQ(modeOf(usual), 0700);
    ::setenv("XDG_DATA_HOME", (home.path() + "/xdg").c_str(), 1);
    EXPECT_EQ(DesktopShell("").applicationDataFolder(), home.path() + "/xdg");
    ::setenv("XDG_DATA_HOME", "relative", 1);
    EXPECT_EQ(DesktopShell("").applicationDataFolder(), usual);
    EXPECT_EQ(DesktopShell(home.path() + "/own").applicationDataFolder(), home.path() + "/own");
    EXPECT_EQ(DesktopShell("/dev/null/none").applicationDataFolder(), std::nullopt);
}

}  // namespace
}  // namespace pelk
