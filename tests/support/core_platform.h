#pragma once
// A platform for the core: a real toolkit, cipher and XML library; files, folders and a clock that
// the test controls.

#include "db/default_documents.h"
#include "db/storage.h"
#include "platform/platform.h"
#include "platform/user_interface.h"
#include "tests/support/memory_files.h"
#include "tests/support/recorded_display.h"
#include "tests/support/recorded_pictures.h"
#include "tests/support/test_platform.h"

namespace pelk {

class FixedShell : public Shell {
 public:
    std::optional<std::string> folder = "/data";
    std::optional<std::string> applicationDataFolder() override { return folder; }
    std::optional<std::string> own = "/addin";
    int helpOpened = 0;
    std::optional<std::string> ownFolder() override { return own; }
    void openHelp() override { ++helpOpened; }
};

class FixedClock : public Clock {
 public:
    LocalTime time{2026, 11, 22, 10, 30, 0};
    LocalTime now() override { return time; }
};

inline std::unique_ptr<Database> loadDocument(std::string_view xml) {
    std::unique_ptr<XmlDocument> document = makeXmlDocument();
    EXPECT_TRUE(document->loadXml(std::string(xml))) << document->parseError();
    return std::make_unique<Database>(std::move(document));
}

inline std::unique_ptr<Database> emptyDatabase() {
    return loadDocument(kFirstStartDocument);
}

class CorePlatform : public TestPlatform {
 public:
    RecordedDisplay display;
    RecordedPictures pictures;
    ForgetfulSettings settings;
    MemoryFiles files;
    FixedShell shell;
    FixedClock clock;
    const std::unique_ptr<Crypto> crypto = makeCrypto();

    UserInterface ui() { return {toolkit(), dialogs, display, settings, pictures}; }
    const Platform& platform() const { return platform_; }
    Storage& storage() { return storage_; }

 private:
    Platform platform_{files, shell, clock, language(), *crypto, makeXmlDocument};
    Storage storage_{platform_};
};

}  // namespace pelk
