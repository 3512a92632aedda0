#pragma once
// Helpers for the fuzz targets. A target passes the fuzzer's bytes to the program and aborts when
// an invariant of the program is violated. The sanitizers abort on memory errors and undefined
// behaviour.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "db/database.h"
#include "db/default_documents.h"
#include "db/document_check.h"
#include "platform/desktop/locale_language.h"
#include "platform/desktop/pugi_document.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace pelk {

/// The key of the encrypted seeds. No real file uses it.
inline constexpr std::string_view kFuzzKey = "a key for the fuzzer";

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline void require(bool holds, const char* invariant, std::string_view detail = {}) {
    if (holds)
        return;
    std::fprintf(stderr, "Violated: %s\n%.*s\n", invariant, static_cast<int>(detail.size()),
                 detail.data());
    std::abort();
}

inline const Language& language() {
    static const LocaleLanguage english("en_US");
    return english;
}

/// Returns the database in a plain document; null when it is refused.
inline std::unique_ptr<Database> openDocument(std::string_view xml) {
    std::unique_ptr<XmlDocument> document = createPugiDocument();
    if (!document->loadXml(std::string(xml)))
        return nullptr;
    try {
        return std::make_unique<Database>(std::move(document));
    } catch (const Error&) {
        return nullptr;
    }
}

inline std::string faultOf(const XmlElement& root) {
    try {
        requireSoundDocument(root);
        return {};
    } catch (const Error& error) {
        return error.what();
    }
}

/// Requires that a sound database is accepted again after writing, with the same document.
inline void requireSoundAndRoundTrip(const Database& database) {
    require(faultOf(database.root()).empty(), "the database is sound", faultOf(database.root()));
    const std::string xml = database.xml();
    const std::unique_ptr<XmlDocument> again = createPugiDocument();
    require(again->loadXml(xml), "a written document is well-formed", xml);
    require(faultOf(again->root()).empty(), "a written document is accepted", xml);
    require(again->xml() == xml, "a document round-trips unchanged", xml);
}

}  // namespace pelk
