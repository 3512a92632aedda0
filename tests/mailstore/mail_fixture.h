#pragma once
// Writes mail to a temporary folder and describes a session over it in one line.

#include <gtest/gtest.h>

#include <ctime>
#include <memory>

#include "mailstore/mail_store.h"
#include "tests/support/temporary_folder.h"

namespace pelk {

inline std::string message(const std::string& subject) {
    return "From: Jane <jane@x.org>\nTo: bob@x.org\nSubject: " + subject + "\n\nText\n";
}

inline std::string mbox(const std::string& subject) {
    return "From jane@x.org Tue Jan  2 03:04:05 2001\n" + message(subject) + "\n";
}

/// Describes folders as "name[subjects](subfolders)". A star marks an item that is not an e-mail,
/// an exclamation mark a folder that cannot be read.
inline std::string describe(MailFolders& folders) {
    std::string text;
    while (const auto folder = folders.next()) {
        text += (text.empty() ? "" : " ") + folder->name() + "[";
        try {
            auto& stored = dynamic_cast<StoredFolder&>(*folder);
            for (int i = 1, count = folder->itemCount(); i <= count; ++i) {
                const MessageSummary summary = stored.summary(i);
                text += (i > 1 ? " " : "") + summary.subject;
                text += summary.kind == ItemKind::Mail ? "" : "*";
            }
        } catch (const Error&) {
            text += "!";
        }
        const std::string inner = describe(*folder->folders());
        text += "]" + (inner.empty() ? "" : "(" + inner + ")");
    }
    return text;
}

class MailTest : public testing::Test {
 protected:
    MailTest() {
        ::setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
        ::tzset();
    }

    /// Opens a file or directory in the temporary folder.
    std::unique_ptr<MailSession> open(const std::string& name) const {
        return openMailSession({files.path() + "/" + name}, {});
    }

    std::unique_ptr<MailFolder> openFolder(const std::string& name) const {
        return open(name)->folders()->next();
    }

    std::string treeOf(const std::string& name) const { return describe(*open(name)->folders()); }

    TemporaryFolder files;
};

}  // namespace pelk
