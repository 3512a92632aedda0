#include <windows.h>

#include <thread>
#include <vector>

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_shell.h"
#include "tests/platform/files_fixture.h"

namespace pelk {
namespace {

TEST_F(FilesTest, haveOneWriterForWhomOthersWaitAMoment) {
    const std::string fresh = path + ".new";
    write(path, "old");
    write(fresh, "new");
    const HANDLE held = CreateFileW(toWide(path).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_NE(messageOf([&] { files->readWholeFile(path); }), "");
    std::thread other([held] {
        Sleep(60);
        CloseHandle(held);
    });
    EXPECT_EQ(messageOf([&] { files->replaceFile(fresh, path); }), "");
    other.join();
    EXPECT_EQ(files->readWholeFile(path), "new");
}

TEST_F(FilesTest, mayHaveALongPath) {
    std::string inner = folder.path();
    std::vector<std::string> folders;
    for (int level = 0; level < 4; ++level) {
        inner = files->join(inner, std::string(100, 'x'));
        folders.push_back(inner);
        files->createFolder(inner);
        EXPECT_TRUE(files->folderExists(inner));
    }
    const std::string file = files->join(inner, "file");
    write(file, "text");
    EXPECT_EQ(files->readWholeFile(file), "text");
    files->replaceFile(file, files->join(folder.path(), "short"));
    for (; !folders.empty(); folders.pop_back())
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + toWide(folders.back())).c_str()));
}

TEST(WindowsShell, namesTheDataFolderAndTheTime) {
    const std::optional<std::string> data = WindowsShell().applicationDataFolder();
    ASSERT_TRUE(data);
    EXPECT_TRUE(WindowsFiles().folderExists(*data)) << *data;
    const LocalTime now = WindowsClock().now();
    EXPECT_GE(now.year, 2024);
    EXPECT_TRUE(now.month >= 1 && now.month <= 12 && now.day >= 1 && now.day <= 31);
}

}  // namespace
}  // namespace pelk
