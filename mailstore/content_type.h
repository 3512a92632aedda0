#pragma once
// The Content-Type of a message or body part, with parameters decoded as in RFC 2231. Only source
// files include this header.

#include <memory>
#include <string>

#include "mailstore/gmime_ready.h"
#include "mailstore/message_header.h"

namespace pelk {

class ContentType {
 public:
    /// A header without the field means text/plain.
    explicit ContentType(const MessageHeader& header);

    /// Ignores letter case. `subtype` may be "*" for any.
    bool is(const char* type, const char* subtype) const;
    /// Returns the value of the parameter, or empty text if it is missing.
    std::string parameter(const char* name) const;

 private:
    struct Unref {
        void operator()(GMimeContentType* type) const { g_object_unref(type); }
    };
    std::unique_ptr<GMimeContentType, Unref> type_;
};

/// Decodes `content`. `encoding` is a value of `Content-Transfer-Encoding`; an unknown one leaves
/// the content as it is.
std::string decodeContent(const std::string& encoding, const std::string& content);

}  // namespace pelk
