#include "tools/event_loop_output_waiter.h"

#include <QEventLoop>
#include <algorithm>

namespace quillet {

void EventLoopOutputWaiter::wake() {
    quitting_.wake();
    QMetaObject::invokeMethod(
        &receiver_,
        [this] {
            for (QEventLoop* loop : waiting_) loop->quit();
        },
        Qt::QueuedConnection);
}

void EventLoopOutputWaiter::waitUntil(const std::function<bool()>& ready) {
    // Registered before the first check: a wake-up is only delivered while events are handled,
    // that is inside exec(), where it finds this loop; so none is lost between check and wait.
    QEventLoop loop;
    waiting_.push_back(&loop);
    while (!ready()) {
        // Once the application has been told to quit, exec() returns at once with -1; waiting on
        // the thread then keeps this from spinning until the command ends.
        if (loop.exec() < 0) quitting_.waitUntil(ready);
    }
    waiting_.erase(std::find(waiting_.begin(), waiting_.end(), &loop));
}

}  // namespace quillet
