#include "mailstore/stream_decoder.h"

#include <lzma.h>
#include <zlib.h>
#include <zstd.h>

#include <cstdint>
#include <new>

namespace pelk {
namespace {

using namespace std::string_view_literals;

constexpr const char* kInvalid = "the compressed data is damaged";
constexpr const char* kNoMemory = "unpacking it takes more memory than there is";

class GzipDecoder : public StreamDecoder {
 public:
    GzipDecoder() {
        constexpr int kGzipOnly = 16;
        if (inflateInit2(&stream_, MAX_WBITS + kGzipOnly) != Z_OK)
            throw std::bad_alloc();
    }
    GzipDecoder(const GzipDecoder&) = delete;
    GzipDecoder& operator=(const GzipDecoder&) = delete;
    ~GzipDecoder() override { inflateEnd(&stream_); }

    std::size_t decode(std::string_view& input, char* output, std::size_t size) override {
        if (complete_ && !input.empty()) {
            inflateReset(&stream_);
            complete_ = false;
        }
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
        stream_.avail_in = static_cast<uInt>(input.size());
        stream_.next_out = reinterpret_cast<Bytef*>(output);
        stream_.avail_out = static_cast<uInt>(size);
        const int result = complete_ ? Z_OK : inflate(&stream_, Z_NO_FLUSH);
        if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR)
            throw DamagedStream(result == Z_MEM_ERROR ? kNoMemory : kInvalid);
        complete_ = complete_ || result == Z_STREAM_END;
        input.remove_prefix(input.size() - stream_.avail_in);
        return size - stream_.avail_out;
    }

 private:
    z_stream stream_{};
};

class XzDecoder : public StreamDecoder {
 public:
    XzDecoder() { start(); }
    XzDecoder(const XzDecoder&) = delete;
    XzDecoder& operator=(const XzDecoder&) = delete;
    ~XzDecoder() override { lzma_end(&stream_); }

    std::size_t decode(std::string_view& input, char* output, std::size_t size) override {
        if (complete_ && !input.empty())
            start();
        stream_.next_in = reinterpret_cast<const std::uint8_t*>(input.data());
        stream_.avail_in = input.size();
        stream_.next_out = reinterpret_cast<std::uint8_t*>(output);
        stream_.avail_out = size;
        const lzma_ret result = complete_ ? LZMA_OK : lzma_code(&stream_, LZMA_RUN);
        if (result == LZMA_MEM_ERROR || result == LZMA_MEMLIMIT_ERROR)
            throw DamagedStream(kNoMemory);
        if (result != LZMA_OK && result != LZMA_STREAM_END && result != LZMA_BUF_ERROR)
            throw DamagedStream(kInvalid);
        complete_ = complete_ || result == LZMA_STREAM_END;
        input.remove_prefix(input.size() - stream_.avail_in);
        return size - stream_.avail_out;
    }

 private:
    void start() {
        // The largest preset of xz takes 65 MB.
        constexpr std::uint64_t kMostMemory = 512ULL << 20;
        if (lzma_stream_decoder(&stream_, kMostMemory, 0) != LZMA_OK)
            throw std::bad_alloc();
        complete_ = false;
    }

    lzma_stream stream_ = LZMA_STREAM_INIT;
};

class ZstdDecoder : public StreamDecoder {
 public:
    ZstdDecoder() : stream_(ZSTD_createDStream()) {
        if (!stream_)
            throw std::bad_alloc();
    }

    std::size_t decode(std::string_view& input, char* output, std::size_t size) override {
        ZSTD_inBuffer in{input.data(), input.size(), 0};
        ZSTD_outBuffer out{output, size, 0};
        if (complete_ && input.empty())
            return 0;
        const std::size_t result = ZSTD_decompressStream(stream_.get(), &out, &in);
        if (ZSTD_isError(result) != 0U)
            throw DamagedStream(ZSTD_getErrorName(result));
        complete_ = result == 0;
        input.remove_prefix(in.pos);
        return out.pos;
    }

 private:
    struct Free {
        void operator()(ZSTD_DStream* stream) const { ZSTD_freeDStream(stream); }
    };
    std::unique_ptr<ZSTD_DStream, Free> stream_;
};

}  // namespace

std::unique_ptr<StreamDecoder> StreamDecoder::forData(std::string_view start) {
    if (start.starts_with("\x1F\x8B"sv))
        return std::make_unique<GzipDecoder>();
    if (start.starts_with("\xFD"
                          "7zXZ\0"sv))
        return std::make_unique<XzDecoder>();
    if (start.starts_with("\x28\xB5\x2F\xFD"sv))
        return std::make_unique<ZstdDecoder>();
    return nullptr;
}

}  // namespace pelk
