#pragma once
// A file system in memory in which any step can be made to fail.

#include <map>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <utility>

#include "platform/files.h"

namespace pelk {

/// Every call that changes something is a step. Step `failAt`, counted from 1, fails; `files` then
/// holds what a crash at that moment would leave.
class MemoryFiles : public FileSystem {
 public:
    std::map<std::string, std::string> files;
    std::set<std::string> folders;
    int steps = 0;
    int failAt = 0;
    /// Whether all later steps fail, too.
    bool crashes = false;
    bool readsFail = false;
    /// Whether looking up files and folders fails.
    bool lookUpsFail = false;
    /// Whether a failing step throws `std::bad_alloc`.
    bool memoryFails = false;

    std::string join(const std::string& folder, const std::string& name) const override {
        return folder + "/" + name;
    }
    bool folderExists(const std::string& path) override {
        lookUp(path);
        return folders.contains(path);
    }
    bool fileExists(const std::string& path) override {
        lookUp(path);
        return files.contains(path);
    }
    void createFolder(const std::string& path) override {
        step(path);
        folders.insert(path);
    }
    std::string readWholeFile(const std::string& path) override {
        if (readsFail || !files.contains(path))
            throw Error(path + " cannot be read.");
        return files[path];
    }
    TemporaryFile createTemporary(const std::string& target) override {
        step(target);
        const std::string digits = std::to_string(steps);
        const std::string path = target + std::string(kTemporaryMark) +
                                 std::string(kTemporaryDigits - digits.size(), '0') + digits;
        files[path].clear();
        return {path, std::make_unique<File>(*this, path, target)};
    }
    void removeLeftovers(const std::string& folder) override {
        std::erase_if(files, [&folder](const auto& file) {
            return file.first.starts_with(folder) && isTemporaryName(file.first);
        });
    }
    void replaceFile(const std::string& from, const std::string& to) override {
        step(to);
        auto moved = files.extract(from);
        files[to] = std::move(moved.mapped());
    }
    void removeFile(const std::string& path) override {
        step(path);
        files.erase(path);
    }

 private:
    class File : public WritableFile {
     public:
        File(MemoryFiles& owner, std::string path, std::string target)
            : owner_(owner), path_(std::move(path)), target_(std::move(target)) {}
        void write(std::string_view bytes) override {
            // A disk that fills up stores the first half.
            owner_.files[path_] += bytes.substr(0, bytes.size() / 2);
            owner_.step(target_);
            owner_.files[path_] += bytes.substr(bytes.size() / 2);
        }
        void flushToDisk() override { owner_.step(target_); }
        void close() override { owner_.step(target_); }

     private:
        MemoryFiles& owner_;
        std::string path_;
        std::string target_;
    };

    void step(const std::string& path) {
        ++steps;
        if (failAt == 0 || (crashes ? steps < failAt : steps != failAt))
            return;
        if (memoryFails)
            throw std::bad_alloc();
        throw Error(path + " cannot be written.");
    }
    void lookUp(const std::string& path) const {
        if (lookUpsFail)
            throw Error(path + " cannot be looked up.");
    }
};

}  // namespace pelk
