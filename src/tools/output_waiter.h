#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

namespace quillet {

// How the thread that runs a command waits for its next piece of output. The reading thread calls
// wake() whenever something new is ready; waitUntil() returns on the calling thread once `ready`
// holds, and checks it before every wait so that no wake-up is lost. wake() must never wait for the
// calling thread, so the reader keeps reading whatever the caller is doing.
class OutputWaiter {
public:
    virtual ~OutputWaiter() = default;
    virtual void wake() = 0;
    virtual void waitUntil(const std::function<bool()>& ready) = 0;
};

// Blocks the calling thread on a condition variable: for callers without a window.
class BlockingOutputWaiter final : public OutputWaiter {
public:
    void wake() override;
    void waitUntil(const std::function<bool()>& ready) override;

private:
    std::mutex mutex_;
    std::condition_variable woken_;
};

}  // namespace quillet
