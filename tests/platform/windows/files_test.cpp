#include "platform/files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <thread>
#include <vector>

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_shell.h"
#include "tests/support/temporary_folder.h"

namespace pelk {
namespace {

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
    WindowsFiles files;
    std::string path = files.join(folder.path(), "Änne 李.db");

    void write(const std::string& target, const std::string& content) {
        const std::unique_ptr<WritableFile> file = files.createFile(target);
        file->write(content);
        file->flushToDisk();
        file->close();
    }
};

TEST_F(FilesTest, writesReplacesAndRemoves) {
    const std::string bytes("a\0\r\n\xFF\x1A", 6);
    write(path, "longer than what comes after it");
    write(path, bytes);
    EXPECT_EQ(files.readWholeFile(path), bytes);
    const std::string fresh = path + ".new";
    write(fresh, "");
    files.replaceFile(fresh, path);
    EXPECT_EQ(files.readWholeFile(path), "");
    EXPECT_FALSE(files.fileExists(fresh));
    files.replaceFile(path, fresh);
    EXPECT_TRUE(files.fileExists(fresh));
    files.removeFile(fresh);
    EXPECT_FALSE(files.fileExists(fresh));
}

TEST_F(FilesTest, waitsForAProgramThatHoldsTheFileForAMoment) {
    const std::string fresh = path + ".new";
    write(path, "old");
    write(fresh, "new");
    std::unique_ptr<WritableFile> held = files.createFile(path);
    std::thread other([&held] {
        Sleep(60);
        held.reset();
    });
    EXPECT_EQ(messageOf([&] { files.replaceFile(fresh, path); }), "");
    other.join();
    EXPECT_EQ(files.readWholeFile(path), "new");
}

TEST_F(FilesTest, tellsFilesAndFoldersApartHoweverLongThePath) {
    std::string inner = folder.path();
    std::vector<std::string> folders;
    for (int level = 0; level < 4; ++level) {
        inner = files.join(inner, std::string(100, 'x'));
        folders.push_back(inner);
        EXPECT_FALSE(files.folderExists(inner));
        files.createFolder(inner);
        EXPECT_TRUE(files.folderExists(inner));
        EXPECT_FALSE(files.fileExists(inner));
    }
    const std::string file = files.join(inner, "file");
    write(file, "text");
    EXPECT_EQ(files.readWholeFile(file), "text");
    EXPECT_FALSE(files.folderExists(file));
    files.replaceFile(file, files.join(folder.path(), "short"));
    for (; !folders.empty(); folders.pop_back())
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + toWide(folders.back())).c_str()));
}

TEST_F(FilesTest, namesThePathAndTheReasonOfAFailure) {
    const std::string missing = files.join(folder.path(), "no\\file");
    const auto expectMessage = [&](const char* what, const std::function<void()>& act) {
        const std::string start = missing + " cannot be " + what + ": ";
        const std::string message = messageOf(act);
        EXPECT_EQ(message.substr(0, start.size()), start);
        EXPECT_GT(message.size(), start.size() + 5) << message;
        EXPECT_TRUE(message.ends_with('.') && !message.ends_with("..")) << message;
    };
    expectMessage("read", [&] { files.readWholeFile(missing); });
    expectMessage("written", [&] { files.createFile(missing); });
    expectMessage("created", [&] { files.createFolder(missing); });
    expectMessage("removed", [&] { files.removeFile(missing); });
    expectMessage("replaced", [&] { files.replaceFile(path, missing); });
    EXPECT_NE(messageOf([&] { files.readWholeFile(folder.path()); }), "");
    const std::unique_ptr<WritableFile> open = files.createFile(path);
    EXPECT_NE(messageOf([&] { files.createFile(path); }), "") << "written by two at once";
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
