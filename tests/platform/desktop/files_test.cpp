#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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

TEST_F(FilesTest, followsALinkToTheFileItLeadsTo) {
    const std::string elsewhere = files->join(folder.path(), "elsewhere");
    files->createFolder(elsewhere);
    const std::string real = files->join(elsewhere, "real.db");
    write(real, "old");
    ASSERT_EQ(::symlink("elsewhere/real.db", path.c_str()), 0);
    EXPECT_TRUE(files->fileExists(path));
    write(path, "new");
    EXPECT_EQ(files->readWholeFile(real), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(countIn(elsewhere), 1U);
}

TEST_F(FilesTest, takesOnlyNothingForNothing) {
    const std::string link = files->join(folder.path(), "link");
    ASSERT_EQ(::symlink("nowhere", link.c_str()), 0);
    EXPECT_EQ(messageOf([&] { files->fileExists(link); }),
              link + " is a symbolic link to a missing file.");
    EXPECT_NE(messageOf([&] { write(link, ""); }), "");
    const std::string pipe = files->join(folder.path(), "pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(messageOf([&] { files->fileExists(pipe); }), pipe + " is a pipe, not a file.");
    EXPECT_EQ(messageOf([&] { write(pipe, ""); }), pipe + " is a pipe, not a file.");
    write(path, "");
    const std::string below = files->join(path, "below");
    for (const std::string& unknown : {below, files->join(folder.path(), std::string(300, 'x'))})
        EXPECT_TRUE(messageOf([&] {
                        files->fileExists(unknown);
                    }).starts_with(unknown + " cannot be looked up: "));
    EXPECT_NE(messageOf([&] { files->folderExists(below); }), "");
}

TEST_F(FilesTest, reportsADiskThatIsFull) {
    // A file size limit acts as a full disk.
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
    const std::string made = folder.path() + "/made";
    lock.emplace(made + "/inner");
    EXPECT_EQ(modeOf(made + "/inner"), 0700);
    lock.reset();
    EXPECT_FALSE(std::filesystem::exists(made)) << "nothing came into it";
    lock.emplace(made + "/inner");
    folder.write("made/inner/file", "");
    lock.reset();
    EXPECT_TRUE(std::filesystem::exists(made + "/inner/file"));
    EXPECT_THROW(FolderLock(made + "/inner/file"), Error);
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
    EXPECT_EQ(messageOf([] { DesktopShell("/dev/null/none").applicationDataFolder(); }),
              "/dev/null/none cannot be looked up: Not a directory.");
    ::unsetenv("HOME");
    EXPECT_EQ(DesktopShell("").applicationDataFolder(), std::nullopt);
}

}  // namespace
}  // namespace pelk
