#include "platform/whole_files.h"

#include <exception>
#include <utility>

namespace pelk {

FreshFile::FreshFile(FileSystem& files, const FileToWrite& content)
    : files_(files), target_(content.path), fresh_(files.createTemporary(target_)) {
    try {
        content.fill(*fresh_.file);
        fresh_.file->flushToDisk();
        fresh_.file->close();
    } catch (...) {
        remove();
        throw;
    }
}

FreshFile::FreshFile(FreshFile&& other) noexcept
    : files_(other.files_),
      target_(std::move(other.target_)),
      fresh_(std::move(other.fresh_)),
      waits_(std::exchange(other.waits_, false)) {}

FreshFile::~FreshFile() {
    if (waits_)
        remove();
}

void FreshFile::replaceTarget() {
    files_.replaceFile(fresh_.path, target_);
    waits_ = false;
}

/// Only the error of the write is reported.
void FreshFile::remove() noexcept {
    try {
        fresh_.file.reset();
        files_.removeFile(fresh_.path);
    } catch (const std::exception&) {
        // The file remains; the next writer of the database removes those beside it.
    }
}

void writeWholeFiles(FileSystem& files, const std::vector<FileToWrite>& contents) {
    std::vector<FreshFile> fresh;
    fresh.reserve(contents.size());
    for (const FileToWrite& content : contents)
        fresh.emplace_back(files, content);
    for (FreshFile& file : fresh)
        file.replaceTarget();
}

void writeWholeFiles(FileSystem& files, const std::vector<FileContent>& contents) {
    std::vector<FileToWrite> toWrite;
    for (const FileContent& file : contents)
        toWrite.push_back(
            {file.path, [&file](WritableFile& written) { written.write(file.content); }});
    writeWholeFiles(files, toWrite);
}

}  // namespace pelk
