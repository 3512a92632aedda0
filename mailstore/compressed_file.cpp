#include "mailstore/compressed_file.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <system_error>
#include <vector>

#include "mailstore/stream_decoder.h"
#include "mailstore/temporary_file.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::size_t kBlockSize = 256UL << 10;
// Enough for the longest signature.
constexpr std::size_t kSignatureSize = 6;

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
    throw Error(path + " cannot be read: " + reason + ".");
}

[[noreturn]] void failUnpacking(const std::string& path) {
    fail(path, "it cannot be unpacked to " + temporaryDirectory() + ": " +
                   std::generic_category().message(errno));
}

std::string readStart(const MailFile& file, std::size_t size) {
    std::string start(size, '\0');
    start.resize(file.read(0, start.data(), start.size()));
    return start;
}

/// Calls `take` with the content, block by block, until it returns false.
void decodeAll(const MailFile& file, StreamDecoder& decoder,
               const std::function<bool(std::string_view)>& take) {
    std::vector<char> packed(kBlockSize);
    std::vector<char> block(kBlockSize);
    for (std::uint64_t offset = 0; offset < file.size();) {
        std::string_view input(packed.data(), file.read(offset, packed.data(), packed.size()));
        if (input.empty())
            file.failChanged();
        offset += input.size();
        std::size_t length = 0;
        do {
            length = decoder.decode(input, block.data(), block.size());
            if (!take({block.data(), length}))
                return;
        } while (!input.empty() || length == block.size());
    }
    if (!decoder.isComplete())
        fail(file.path(), "its compressed data is cut short");
}

void decode(const MailFile& file, StreamDecoder& decoder,
            const std::function<bool(std::string_view)>& take) {
    try {
        decodeAll(file, decoder, take);
    } catch (const DamagedStream& damage) {
        fail(file.path(), damage.reason());
    }
}

}  // namespace

std::shared_ptr<MailFile> openContent(const std::string& path) {
    std::shared_ptr<MailFile> file = MailFile::open(path);
    const std::unique_ptr<StreamDecoder> decoder =
        StreamDecoder::forData(readStart(*file, kSignatureSize));
    if (!decoder)
        return file;
    const int descriptor = openTemporaryFile();
    if (descriptor < 0)
        failUnpacking(path);
    return MailFile::unpacked(*file, descriptor, [&] {
        decode(*file, *decoder, [&](std::string_view block) {
            if (!writeAll(descriptor, block))
                failUnpacking(path);
            return true;
        });
    });
}

std::string startOfContent(const std::string& path, std::size_t size) {
    const std::shared_ptr<MailFile> file = MailFile::open(path);
    std::string start = readStart(*file, std::max(size, kSignatureSize));
    if (const std::unique_ptr<StreamDecoder> decoder = StreamDecoder::forData(start)) {
        start.clear();
        decode(*file, *decoder, [&](std::string_view block) {
            start += block.substr(0, size - start.size());
            return start.size() < size;
        });
    }
    return start.substr(0, size);
}

}  // namespace pelk
