#include "platform/desktop/desktop_shell.h"

#include <QProcess>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/desktop/made_folders.h"
#include "platform/error.h"

namespace pelk {
namespace {

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// Empty when the environment does not say.
std::string usualDataFolder() {
    // The standard for XDG base directories requires that a relative path is ignored.
    if (std::string folder = environment("XDG_DATA_HOME"); folder.starts_with('/'))
        return folder;
    const std::string home = environment("HOME");
    return home.empty() ? home : home + "/.local/share";
}

/// Returns the path of a page of the help, where it is installed or built. Empty when it is in
/// neither.
std::string pathOfPage(const std::string& name) {
    std::error_code error;
    const std::filesystem::path prefix =
        std::filesystem::read_symlink("/proc/self/exe", error).parent_path().parent_path();
    for (const char* folder : {"share/doc/pelk/help", "share/help"})
        if (const std::filesystem::path page = prefix / folder / name;
            std::filesystem::is_regular_file(page, error))
            return page.string();
    return {};
}

}  // namespace

std::optional<std::string> DesktopShell::applicationDataFolder() {
    std::optional<std::string> folder = applicationDataFolderName();
    if (folder)
        makeFolders(*folder);
    return folder;
}

std::optional<std::string> DesktopShell::applicationDataFolderName() {
    const std::string folder = dataFolder_.empty() ? usualDataFolder() : dataFolder_;
    return folder.empty() ? std::nullopt : std::optional(folder);
}

void DesktopShell::openHelp() {
    openHelpPage("index.html");
}

void openHelpPage(const std::string& name) {
    const std::string page = pathOfPage(name);
    if (page.empty())
        throw Error("The help is not installed.");
    if (!QProcess::startDetached("xdg-open", {QString::fromStdString(page)}))
        throw Error("The help cannot be opened because xdg-open does not start. It is in " + page +
                    ".");
}

LocalTime SystemClock::now() {
    const std::time_t seconds = std::time(nullptr);
    std::tm time{};
    localtime_r(&seconds, &time);
    return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday,
            time.tm_hour,        time.tm_min,     time.tm_sec};
}

}  // namespace pelk
