#pragma once
// A text that one thread makes and another one takes.

#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <string>

#include "platform/pieces.h"

namespace pelk {

/// Whatever is added is taken in order: on another thread, if one is to be had, and in `finish` if
/// not.
class HandOver {
 public:
    explicit HandOver(TakePiece take) : take_(std::move(take)) {}
    HandOver(const HandOver&) = delete;
    HandOver& operator=(const HandOver&) = delete;
    /// What has not been taken without `finish` is dropped.
    ~HandOver();

    void add(std::string piece);
    /// Returns when all has been taken. Throws what taking a piece threw, after which none was
    /// taken.
    void finish();

 private:
    void takeAll();
    void end();

    TakePiece take_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::string> pieces_;
    bool ended_ = false;
    /// Declared last: it waits for the other thread, which needs all of the above.
    std::future<void> taking_;
};

}  // namespace pelk
