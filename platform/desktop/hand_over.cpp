#include "platform/desktop/hand_over.h"

#include <utility>

#include "platform/side_by_side.h"

namespace pelk {

HandOver::~HandOver() {
    {
        const std::lock_guard lock(mutex_);
        pieces_.clear();
    }
    end();
}

void HandOver::add(std::string piece) {
    {
        const std::lock_guard lock(mutex_);
        pieces_.push_back(std::move(piece));
    }
    changed_.notify_one();
    if (!taking_.valid())
        taking_ = startAside([this] { takeAll(); });
}

void HandOver::finish() {
    end();
    if (taking_.valid())
        taking_.get();
}

void HandOver::takeAll() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ended_ || !pieces_.empty(); });
        if (pieces_.empty())
            return;
        const std::string piece = std::move(pieces_.front());
        pieces_.pop_front();
        lock.unlock();
        take_(piece);
        lock.lock();
    }
}

void HandOver::end() {
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    changed_.notify_one();
}

}  // namespace pelk
