#pragma once
// An mbox of Gmail's export (Google Takeout). It holds all mail; fields of the messages name their
// labels.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "mailstore/mbox_index.h"
#include "mailstore/stored_messages.h"

namespace pelk {

/// Puts each message under one label, see `mainLabel`, so that no message counts twice. Several
/// threads may call.
class LabelledMbox {
 public:
    /// Returns null unless the first message has labels and a thread, as each one of an export has.
    /// Then reads the header of every message. Throws an `Error` if the file cannot be read.
    static std::shared_ptr<const LabelledMbox> openIfLabelled(const std::string& path);

    /// Returns the labels in order of their names.
    std::vector<std::string> labels() const;
    /// Returns the messages under a label; those without any label if it is empty.
    std::unique_ptr<StoredMessages> messagesOf(const std::string& label) const;

 private:
    explicit LabelledMbox(const std::string& path);

    std::shared_ptr<const MailFile> file_;
    std::map<std::string, std::vector<MboxEntry>> byLabel_;
};

}  // namespace pelk
