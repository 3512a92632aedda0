#include "apps/desktop/mail_finder.h"

#include <chrono>
#include <exception>
#include <utility>

#include "platform/parallel.h"

namespace pelk {

MailFinder::MailFinder(UserPlaces places, MailFinderNews news) : news_(std::move(news)) {
    work_ = runAsync([this, places = std::move(places)] { look(places); });
    // If the system has no thread left, this one searches after the window is open.
    if (work_.wait_for(std::chrono::seconds(0)) == std::future_status::deferred)
        hand([this] { work_.get(); });
}

MailFinder::~MailFinder() {
    stopped_ = true;
    if (work_.valid() && work_.wait_for(std::chrono::seconds(0)) != std::future_status::deferred)
        work_.wait();
}

void MailFinder::look(const UserPlaces& places) {
    std::string fault;
    try {
        lookThrough(places);
    } catch (const std::exception& error) {
        fault = std::string("The search for mail has failed: ") + error.what();
    }
    hand([this, fault] { news_.done(fault); });
}

void MailFinder::lookThrough(const UserPlaces& places) {
    const MailList list = findMail(places);
    hand([this, list] { news_.found(list); });
    for (std::size_t index = 0; index < list.size() && !stopped_; ++index) {
        const MailExtent extent = measureMail(list[index], [this] { return stopped_.load(); });
        hand([this, index, extent] { news_.measured(index, extent); });
    }
}

void MailFinder::hand(std::function<void()> act) {
    QMetaObject::invokeMethod(this, std::move(act), Qt::QueuedConnection);
}

}  // namespace pelk
