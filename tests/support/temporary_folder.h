#pragma once
// A folder on the disk for one test.

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace pelk {

/// Empty at first; removed at the end with its content.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        std::random_device random;
        do
            path_ = std::filesystem::temp_directory_path() / ("pelk-" + std::to_string(random()));
        while (!std::filesystem::create_directory(path_));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    std::string path() const { return path_.string(); }

    /// Writes a file, creates missing folders, and returns its path.
    std::string write(const std::string& name, const std::string& content) const {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file.string();
    }

 private:
    std::filesystem::path path_;
};

}  // namespace pelk
