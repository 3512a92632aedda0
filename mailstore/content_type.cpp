#include "mailstore/content_type.h"

namespace pelk {

ContentType::ContentType(const MessageHeader& header) {
    readyGMime();
    const std::string value = header.first("Content-Type");
    type_.reset(g_mime_content_type_parse(nullptr, value.empty() ? "text/plain" : value.c_str()));
}

bool ContentType::is(const char* type, const char* subtype) const {
    return type_ && g_mime_content_type_is_type(type_.get(), type, subtype) != FALSE;
}

std::string ContentType::parameter(const char* name) const {
    const char* value = type_ ? g_mime_content_type_get_parameter(type_.get(), name) : nullptr;
    return value == nullptr ? "" : value;
}

std::string decodeContent(const std::string& encoding, const std::string& content) {
    readyGMime();
    GMimeEncoding decoder;
    g_mime_encoding_init_decode(&decoder, g_mime_content_encoding_from_string(encoding.c_str()));
    std::string decoded(g_mime_encoding_outlen(&decoder, content.size()), '\0');
    decoded.resize(g_mime_encoding_step(&decoder, content.data(), content.size(), decoded.data()));
    return decoded;
}

}  // namespace pelk
