#include "mailstore/gmail_labels.h"

#include <algorithm>
#include <vector>

#include "mailstore/mail_text.h"
#include "mailstore/special_folder.h"

namespace pelk {
namespace {

/// Labels in addition to that of a place. Other languages are left out: the worst result is that a
/// message is shown under such a label.
constexpr std::string_view kStates[] = {"Archived", "Unread", "Opened", "Important", "Starred"};
constexpr std::string_view kCategory = "Category ";

bool isState(std::string_view label) {
    return equalsIgnoringCase(label.substr(0, kCategory.size()), kCategory) ||
           std::any_of(std::begin(kStates), std::end(kStates), [label](std::string_view state) {
               return equalsIgnoringCase(label, state);
           });
}

/// Removes the first label from `labels` and returns it. A label with a comma is in quotes.
std::string takeLabel(std::string_view& labels) {
    std::string label;
    bool quoted = false;
    while (!labels.empty()) {
        const char c = labels.front();
        labels.remove_prefix(1);
        if (c == ',' && !quoted)
            break;
        if (c == '"')
            quoted = !quoted;
        else
            label += c;
    }
    return label;
}

std::vector<std::string> labelsIn(std::string_view value) {
    const std::string text = decodeText(value);
    std::vector<std::string> labels;
    for (std::string_view rest = text; !rest.empty();)
        if (std::string label = decodeText(takeLabel(rest)); !label.empty())
            labels.push_back(std::move(label));
    return labels;
}

/// Returns the label that names a default folder; the end if none does.
auto findFolder(const std::vector<std::string>& labels) {
    auto chosen = labels.end();
    for (auto label = labels.begin(); label != labels.end(); ++label) {
        const std::optional<DefaultFolder> found = folderOfLabel(*label);
        // A message in the trash is deleted, whatever its other labels.
        if (found == DefaultFolder::DeletedItems)
            return label;
        if (found)
            chosen = label;
    }
    return chosen;
}

}  // namespace

std::optional<DefaultFolder> folderOfLabels(std::string_view labels) {
    if (labels.empty())
        return std::nullopt;
    const std::vector<std::string> all = labelsIn(labels);
    const auto found = findFolder(all);
    return found == all.end() ? std::nullopt : folderOfLabel(*found);
}

std::optional<DefaultFolder> folderOfLabel(std::string_view label) {
    const std::optional<DefaultFolder> found = folderCalled(label);
    return found == DefaultFolder::Outbox ? std::nullopt : found;  // Gmail has none
}

std::string mainLabel(std::string_view labels) {
    const std::vector<std::string> all = labelsIn(labels);
    auto found = findFolder(all);
    if (found == all.end())
        found = std::find_if_not(all.begin(), all.end(), isState);
    if (found == all.end())
        found = all.begin();
    return found == all.end() ? std::string() : *found;
}

}  // namespace pelk
