#include "tools/output_waiter.h"

namespace quillet {

void BlockingOutputWaiter::wake() {
    // Taking the lock orders this wake-up after a waiter's check of `ready`, so none is lost.
    std::lock_guard lock(mutex_);
    woken_.notify_all();
}

void BlockingOutputWaiter::waitUntil(const std::function<bool()>& ready) {
    std::unique_lock lock(mutex_);
    woken_.wait(lock, ready);
}

}  // namespace quillet
