#pragma once
// The file system of Windows.

#include "platform/files.h"

namespace pelk {

/// New files inherit the access rights of their folder: within a user's profile only that user has
/// access.
class WindowsFiles : public FileSystem {
 public:
    std::string join(const std::string& folder, const std::string& name) const override;
    bool folderExists(const std::string& path) override;
    bool fileExists(const std::string& path) override;
    void createFolder(const std::string& path) override;
    std::string readWholeFile(const std::string& path) override;
    TemporaryFile createTemporary(const std::string& target) override;
    void removeLeftovers(const std::string& folder) override;
    void replaceFile(const std::string& from, const std::string& to) override;
    void removeFile(const std::string& path) override;
};

}  // namespace pelk
