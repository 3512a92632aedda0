#pragma once
// A file system in memory that can be made to fail at any step.

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "platform/files.h"

namespace pelk {

/// Every call that changes something is a step; step `failAt`, counted from 1, fails, and what a
/// crash at that moment would have left behind is what `files` then holds.
class MemoryFiles : public FileSystem {
 public:
    std::map<std::string, std::string> files;
    std::set<std::string> folders;
    int steps = 0;
    int failAt = 0;
    bool readsFail = false;

    std::string join(const std::string& folder, const std::string& name) const override {
        return folder + "/" + name;
    }
    bool folderExists(const std::string& path) override { return folders.contains(path); }
    bool fileExists(const std::string& path) override { return files.contains(path); }
    void createFolder(const std::string& path) override {
        step(path);
        folders.insert(path);
    }
    std::string readWholeFile(const std::string& path) override {
        if (readsFail || !fileExists(path))
            throw Error(path + " cannot be read.");
        return files[path];
    }
    std::unique_ptr<WritableFile> createFile(const std::string& path) override {
        step(path);
        files[path].clear();
        return std::make_unique<File>(*this, path);
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
        File(MemoryFiles& owner, std::string path) : owner_(owner), path_(std::move(path)) {}
        void write(std::string_view bytes) override {
            // A disk that fills up takes the first half.
            owner_.files[path_] += bytes.substr(0, bytes.size() / 2);
            owner_.step(path_);
            owner_.files[path_] += bytes.substr(bytes.size() / 2);
        }
        void flushToDisk() override { owner_.step(path_); }
        void close() override { owner_.step(path_); }

     private:
        MemoryFiles& owner_;
        std::string path_;
    };

    void step(const std::string& path) {
        if (++steps == failAt)
            throw Error(path + " cannot be written.");
    }
};

}  // namespace pelk
