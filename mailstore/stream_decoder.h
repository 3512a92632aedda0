#pragma once
// Unpacks compressed data piece by piece.

#include <cstddef>
#include <memory>
#include <string_view>

namespace pelk {

/// Decodes a sequence of compressed members, one after the other. The libraries verify the
/// checksums in the data.
class StreamDecoder {
 public:
    /// Returns the decoder for data that begins with `start`, by its signature: gzip (RFC 1952), xz
    /// or Zstandard (RFC 8878). Null for other data. Throws `std::bad_alloc` if memory is short.
    static std::unique_ptr<StreamDecoder> forData(std::string_view start);

    virtual ~StreamDecoder() = default;

    /// Decodes a part of `input`, which must not be empty unless output is pending, and removes it
    /// from `input`. Writes to `output` and returns the number of bytes written. Throws
    /// `DamagedStream` if the data is invalid.
    virtual std::size_t decode(std::string_view& input, char* output, std::size_t size) = 0;

    /// Whether all input so far has been complete members. If not, the data is cut short.
    bool isComplete() const { return complete_; }

 protected:
    bool complete_ = false;
};

/// Thrown by a decoder. The text is the reason, without a path.
class DamagedStream {
 public:
    explicit DamagedStream(const char* reason) : reason_(reason) {}
    const char* reason() const { return reason_; }

 private:
    const char* reason_;
};

}  // namespace pelk
