#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <optional>

#include "platform/desktop/desktop_shell.h"
#include "platform/desktop/folder_lock.h"
#include "tests/platform/files_fixture.h"

namespace pelk {
namespace {

int modeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? static_cast<int>(status.st_mode & 0777) : -1;
}

TEST_F(FilesTest, areTheirOwnersAlone) {
    write(path, "");
    EXPECT_EQ(modeOf(path), 0600);
    const std::string inner = files->join(folder.path(), "inner");
    files->createFolder(inner);
    EXPECT_EQ(modeOf(inner), 0700);
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
