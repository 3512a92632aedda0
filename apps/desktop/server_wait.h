#pragma once
// Lets the user end a wait for a mail server while the windows read from it.

#include <QProgressDialog>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>

namespace pelk {

/// The thread of the windows must destroy it after it has called `goesOn`.
class ServerWait {
 public:
    explicit ServerWait(std::string host) : host_(std::move(host)) {}

    /// Call it again and again during a wait, with its length so far; any thread may. On the thread
    /// of the windows, it opens a modal box with a Cancel button after a moment, and handles
    /// events. Returns false on all threads once the user has cancelled. The box closes after the
    /// wait.
    bool goesOn(std::chrono::milliseconds waited);

 private:
    struct Box {
        QProgressDialog dialog;
        QTimer closing;
    };

    void showBox();

    const std::string host_;
    std::atomic<bool> isCancelled_ = false;
    std::unique_ptr<Box> box_;
};

}  // namespace pelk
