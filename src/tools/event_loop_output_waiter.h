#pragma once

#include <QObject>
#include <vector>

#include "tools/output_waiter.h"

class QEventLoop;

namespace quillet {

// Waits for a command's output in a local event loop of the window thread, so that the windows
// keep painting, the timers run and the user can act while a command runs. Create it on the
// window thread.
class EventLoopOutputWaiter final : public OutputWaiter {
public:
    void wake() override;
    void waitUntil(const std::function<bool()>& ready) override;

private:
    // Waits instead once the application is quitting, when a local loop no longer waits.
    BlockingOutputWaiter quitting_;
    // Receives the wake-ups on the window thread; a wake-up still queued when this waiter goes is
    // dropped with it.
    QObject receiver_;
    // The loops of this waiter now waiting, outermost first. A wake-up ends them all: each checks
    // its own condition and waits again if it does not hold. (An outer loop resumes only after
    // the inner ones have returned.) Window thread only.
    std::vector<QEventLoop*> waiting_;
};

}  // namespace quillet
