#pragma once
// Finds the mail on this computer on a separate thread.

#include <QObject>
#include <atomic>
#include <functional>
#include <future>

#include "mailstore/discovery/mail_discovery.h"

namespace pelk {

/// The callbacks of a search. They run on the thread of the windows.
struct MailFinderNews {
    /// Receives all mail that was found, before any is measured.
    std::function<void(const MailList&)> found;
    /// Receives the extent of one entry.
    std::function<void(std::size_t, const MailExtent&)> measured;
    /// Called at the end. The text says what ended the search early; it is usually empty.
    std::function<void(const std::string&)> done;
};

/// The constructor starts the search. The destructor stops it and waits until the current file has
/// been measured; no callback runs after that.
class MailFinder : public QObject {
 public:
    MailFinder(UserPlaces places, MailFinderNews news);
    ~MailFinder() override;

 private:
    void look(const UserPlaces& places);
    void lookThrough(const UserPlaces& places);
    void hand(std::function<void()> act);

    const MailFinderNews news_;
    std::atomic<bool> stopped_ = false;
    std::future<void> work_;
};

}  // namespace pelk
