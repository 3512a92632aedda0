#pragma once
// What the user has chosen about the look of the mail window, kept over restarts.

#include <QByteArray>
#include <string>

namespace pelk {

/// Each value is as Qt describes it, and empty at first.
struct MailViewState {
    /// The size and place of the window.
    QByteArray window;
    /// The columns of the message list, and by which it is sorted.
    QByteArray columns;
    /// The widths of the folders and the messages.
    QByteArray widths;
    bool showsFolders = true;

    friend bool operator==(const MailViewState&, const MailViewState&) = default;
};

/// Returns what is in the file, or the first state when it cannot be read. Creates nothing.
MailViewState readViewState(const std::string& file);
/// Throws `Error` if the file cannot be written. Does nothing if the name is empty.
void writeViewState(const std::string& file, const MailViewState& state);

}  // namespace pelk
