#pragma once

#include <QTimer>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace quillet {

class DOSOutputs;

// The runners of the windows that are executing a command now, so that the program can end every
// child it started before it ends itself. Lives on the window thread, and longer than the runners
// it follows.
class RunningCommands {
public:
    explicit RunningCommands(std::chrono::milliseconds gracePeriod = std::chrono::seconds(3));

    // Follows the runs of `runner` from now on (it takes the runner's ExecutionChanged).
    void adopt(DOSOutputs& runner);

    // A runner for a window: it waits in a local event loop, so the windows stay responsive
    // while it runs, and it is followed from the start.
    std::unique_ptr<DOSOutputs> newRunner();

    // How many followed runners are executing a command now.
    std::size_t count() const;

    // Asks every running child to stop at once, ends those still running after the grace period,
    // and calls `whenAllEnded` once no runner is executing any more: at once when none is, else
    // from the event loop after the last run has returned. A runner that starts while the ending
    // is under way is asked to stop as it starts. Never waits on the window thread.
    void endAll(std::function<void()> whenAllEnded);

private:
    void executionChanged(DOSOutputs& runner, bool executing);
    void stopNowKillLater(DOSOutputs& runner);
    void callWhenAllEnded();

    std::chrono::milliseconds gracePeriod_;
    std::vector<DOSOutputs*> executing_;
    std::vector<std::function<void()>> whenAllEnded_;  // not empty while an ending is under way
    QTimer graceTimer_;
};

}  // namespace quillet
