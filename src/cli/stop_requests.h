#pragma once

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "tools/child_process.h"

namespace quillet::cli {

// Ctrl-C and the termination signal (on Windows, the console's break events) ask the companion to
// stop: the running ffmpeg is asked to stop politely at once and ended firmly three seconds later
// if it has not gone. Made once, at the start of main, before any other thread.
class StopRequests {
public:
    StopRequests();
    ~StopRequests();
    StopRequests(const StopRequests&) = delete;
    StopRequests& operator=(const StopRequests&) = delete;

    // Whether a stop was asked for.
    bool requested() const { return requested_; }

    // The child to stop when asked (null: none now). Stopped at once when a stop was asked before.
    void setChild(std::shared_ptr<ChildProcess> child);

    // Called from the system's signal side: records the request and wakes the stopping thread.
    void request();

private:
    void stopChildren();

    std::atomic<bool> requested_ = false;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::shared_ptr<ChildProcess> child_;
    bool closing_ = false;
    std::thread stopper_;
};

}  // namespace quillet::cli
