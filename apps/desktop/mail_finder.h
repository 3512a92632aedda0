#pragma once
// Looks for the mail on this computer on a thread of its own.

#include <QObject>
#include <atomic>
#include <functional>
#include <future>

#include "mailstore/discovery/mail_discovery.h"

namespace pelk {

/// What a search calls, each time on the thread of the window.
struct MailFinderNews {
    /// With all that was found, before any of it is measured.
    std::function<void(const MailList&)> found;
    /// With the extent of one entry.
    std::function<void(std::size_t, const MailExtent&)> measured;
    /// At the end. The text says what ended the search early, and is empty as a rule.
    std::function<void(const std::string&)> done;
};

/// Starts the search when it is constructed. The destructor stops the search, waits until the file
/// at hand has been measured, and nothing is called afterwards.
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
