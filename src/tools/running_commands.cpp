#include "tools/running_commands.h"

#include <QTimer>
#include <algorithm>
#include <utility>

namespace quillet {

RunningCommands::RunningCommands(std::chrono::milliseconds gracePeriod)
    : gracePeriod_(gracePeriod) {}

RunningCommands::~RunningCommands() {
    // Nothing is left to follow a child still running by now.
    for (CommandRunner* runner : runners_) {
        runner->killNow();
        delete runner;
    }
}

RunningCommands::RunnerHandle RunningCommands::newRunner() {
    auto* runner = new CommandRunner(*this);
    runners_.push_back(runner);
    return RunnerHandle(runner, LetGo{this});
}

std::size_t RunningCommands::count() const {
    return static_cast<std::size_t>(std::count_if(
        runners_.begin(), runners_.end(), [](const CommandRunner* r) { return r->running(); }));
}

void RunningCommands::endAll(std::function<void()> whenAllEnded) {
    whenAllEnded_.push_back(std::move(whenAllEnded));
    for (CommandRunner* runner : runners_) runner->stopThenKill(gracePeriod_);
    endingStepForward();
}

void RunningCommands::letGo(CommandRunner* runner) {
    // Its window is going: nothing more is told to it.
    runner->dismiss();
    if (runner->running()) {
        runner->stopThenKill(gracePeriod_);
    } else {
        forget(*runner);
    }
}

void RunningCommands::runStarted(CommandRunner& runner) {
    if (!whenAllEnded_.empty()) runner.stopThenKill(gracePeriod_);
}

void RunningCommands::runEnded(CommandRunner& runner) {
    if (runner.dismissed()) forget(runner);
    endingStepForward();
}

void RunningCommands::endingStepForward() {
    if (whenAllEnded_.empty() || count() > 0) return;
    // Called from the event loop, once the handler that ended the last run has returned.
    QTimer::singleShot(0, &context_, [this] {
        if (count() > 0) return;
        for (auto& whenAllEnded : std::exchange(whenAllEnded_, {})) {
            if (whenAllEnded) whenAllEnded();
        }
    });
}

void RunningCommands::forget(CommandRunner& runner) {
    std::erase(runners_, &runner);
    runner.deleteLater();
}

}  // namespace quillet
