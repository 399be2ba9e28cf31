#include "tools/running_commands.h"

#include <utility>

#include "tools/dos_outputs.h"
#include "tools/event_loop_output_waiter.h"

namespace quillet {

RunningCommands::RunningCommands(std::chrono::milliseconds gracePeriod)
    : gracePeriod_(gracePeriod) {
    graceTimer_.setSingleShot(true);
    QObject::connect(&graceTimer_, &QTimer::timeout, [this] {
        for (DOSOutputs* runner : executing_) runner->KillChild();
    });
}

void RunningCommands::adopt(DOSOutputs& runner) {
    runner.ExecutionChanged = [this, &runner](bool executing) {
        executionChanged(runner, executing);
    };
}

std::unique_ptr<DOSOutputs> RunningCommands::newRunner() {
    auto runner = std::make_unique<DOSOutputs>(std::make_shared<EventLoopOutputWaiter>());
    adopt(*runner);
    return runner;
}

std::size_t RunningCommands::count() const {
    return executing_.size();
}

void RunningCommands::endAll(std::function<void()> whenAllEnded) {
    whenAllEnded_.push_back(std::move(whenAllEnded));
    if (executing_.empty()) {
        callWhenAllEnded();
        return;
    }
    for (DOSOutputs* runner : executing_) stopNowKillLater(*runner);
}

void RunningCommands::executionChanged(DOSOutputs& runner, bool executing) {
    if (executing) {
        executing_.push_back(&runner);
        if (!whenAllEnded_.empty()) stopNowKillLater(runner);
        return;
    }
    std::erase(executing_, &runner);
    if (whenAllEnded_.empty() || !executing_.empty()) return;
    graceTimer_.stop();
    // Called from the event loop, once the run that ended has returned to its caller.
    QTimer::singleShot(0, &graceTimer_, [this] {
        if (executing_.empty()) callWhenAllEnded();
    });
}

void RunningCommands::stopNowKillLater(DOSOutputs& runner) {
    runner.StopChild();
    if (!graceTimer_.isActive()) graceTimer_.start(gracePeriod_);
}

void RunningCommands::callWhenAllEnded() {
    for (auto& whenAllEnded : std::exchange(whenAllEnded_, {})) {
        if (whenAllEnded) whenAllEnded();
    }
}

}  // namespace quillet
