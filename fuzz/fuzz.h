#pragma once
// What the fuzz targets share. A target hands the fuzzer's bytes to the program and ends the
// process when a promise of the program does not hold; the address and undefined-behaviour checks
// end it for the rest.

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

/// Of what the seeds hold encrypted, and of no real file.
inline constexpr std::string_view kFuzzKey = "a key for the fuzzer";

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline void require(bool holds, const char* promise, std::string_view detail = {}) {
    if (holds)
        return;
    std::fprintf(stderr, "Broken promise: %s\n%.*s\n", promise, static_cast<int>(detail.size()),
                 detail.data());
    std::abort();
}

inline const Language& language() {
    static const LocaleLanguage english("en_US");
    return english;
}

/// The database in a plain document; null when it is refused.
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

/// What is sound is accepted again after it has been written, and is the same then.
inline void requireSoundAndRoundTrip(const Database& database) {
    require(faultOf(database.root()).empty(), "the database is sound", faultOf(database.root()));
    const std::string xml = database.xml();
    const std::unique_ptr<XmlDocument> again = createPugiDocument();
    require(again->loadXml(xml), "what was written is well-formed", xml);
    require(faultOf(again->root()).empty(), "what was written is accepted", xml);
    require(again->xml() == xml, "what was written is read as it stands", xml);
}

}  // namespace pelk
