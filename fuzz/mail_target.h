#pragma once
// Reads arbitrary mail in all ways in which the program reads it.

#include <stdexcept>

#include "fuzz/fuzz.h"
#include "mailstore/mail_store.h"
#include "platform/utf8.h"
#include "scan/scanner.h"
#include "tests/support/temporary_folder.h"

namespace pelk {

class NoProgress : public ScanProgress {
    void noticed(const std::string&) override {}
    void folderStarted(const std::string&) override {}
    void itemsCounted(int) override {}
    void itemStarted(int) override {}
};

inline void readItem(StoredFolder& folder, int index) {
    const MessageSummary summary = folder.summary(index);
    require(isXmlText(summary.from) && isXmlText(summary.subject), "a summary can be shown");
    const MessageText text = folder.read(index);
    require(isXmlText(text.text) && isXmlText(text.note), "a text can be shown");
    for (const auto& [name, value] : text.fields)
        require(isXmlText(value), "a field can be shown");
    const std::shared_ptr<MailItem> item = folder.mailItem(index);
    item->creationTime();
    item->isDatedAhead();
    item->messageId();
    item->fingerprint();
    item->labelledFolder();
    item->replyRecipient();
    for (int person = 1, count = item->recipientCount(); person <= count; ++person)
        item->recipient(person);
}

inline void readFolders(MailFolders& folders) {
    while (std::unique_ptr<MailFolder> folder = folders.next()) {
        require(!folder->name().empty(), "a folder has a name");
        auto& stored = dynamic_cast<StoredFolder&>(*folder);
        for (int index = 1, count = stored.itemCount(); index <= count; ++index) {
            try {
                readItem(stored, index);
            } catch (const Error&) {
                // The item is not an e-mail, or its fields cannot be read.
            }
        }
        readFolders(*folder->folders());
    }
}

/// Reads all mail below the path, and scans it into an empty database, which must be sound.
inline void readMail(const std::string& path) {
    try {
        readFolders(*openMailSession({path}, {})->folders());
        const std::unique_ptr<Database> database = openDocument(kFirstStartDocument);
        NoProgress progress;
        Scanner(*database, language(), progress).scan(*openMailSession({path}, {}));
        requireSoundAndRoundTrip(*database);
    } catch (const Error&) {
        // The file is not mail.
    }
}

/// Overwrites the file in place. Creating and removing a file each time would take most of the run.
inline void replaceContent(const std::string& path, std::string_view content) {
    std::FILE* const file = std::fopen(path.c_str(), "w");
    require(file && std::fwrite(content.data(), 1, content.size(), file) == content.size() &&
                std::fclose(file) == 0,
            "the temporary file can be written");
}

}  // namespace pelk
