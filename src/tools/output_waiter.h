#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

namespace quillet {

// Told by a run's reading thread that the run has something new for its owner (a piece of
// output, or the end of it). wake() must return at once and never wait for the owner, so the
// reader keeps reading whatever the owner is doing.
class OutputWakeup {
public:
    virtual ~OutputWakeup() = default;
    virtual void wake() = 0;
};

// Blocks the owner's thread on a condition variable until something is ready: for owners without a
// window, which may wait.
class BlockingOutputWaiter final : public OutputWakeup {
public:
    void wake() override;
    // Returns once `ready` holds; checks it before every wait, so that no wake-up is lost.
    void waitUntil(const std::function<bool()>& ready);

private:
    std::mutex mutex_;
    std::condition_variable woken_;
};

}  // namespace quillet
