#pragma once
// What a message, or a part of one, says about its content. For source files only.

#include <memory>
#include <string>

#include "mailstore/gmime_ready.h"
#include "mailstore/message_header.h"

namespace pelk {

class ContentType {
 public:
    explicit ContentType(const MessageHeader& header);

    /// `subtype` may be "*" for any.
    bool is(const char* type, const char* subtype) const;
    /// Empty when there is none of that name.
    std::string parameter(const char* name) const;

 private:
    struct Unref {
        void operator()(GMimeContentType* type) const { g_object_unref(type); }
    };
    std::unique_ptr<GMimeContentType, Unref> type_;
};

/// `content` without its transfer encoding, which is named as in `Content-Transfer-Encoding`.
std::string decodeContent(const std::string& encoding, const std::string& content);

}  // namespace pelk
