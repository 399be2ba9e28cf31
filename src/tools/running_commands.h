#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include <QObject>

#include "tools/command_runner.h"

namespace quillet {

// Every command runner of the windows, so that no child outlives its window's job or the program.
// A window holds its runner as a RunnerHandle; when the window lets go while a command runs, the
// child is asked to stop, ended firmly after the grace period, and the runner stays here until
// its output has ended. Window thread only; lives longer than the windows.
class RunningCommands : private RunWatcher {
public:
    explicit RunningCommands(std::chrono::milliseconds gracePeriod = std::chrono::seconds(3));
    ~RunningCommands();
    RunningCommands(const RunningCommands&) = delete;
    RunningCommands& operator=(const RunningCommands&) = delete;

    // Lets go of a runner: see the class comment.
    struct LetGo {
        RunningCommands* registry;
        void operator()(CommandRunner* runner) const { registry->letGo(runner); }
    };
    using RunnerHandle = std::unique_ptr<CommandRunner, LetGo>;

    RunnerHandle newRunner();

    // How many runners are running a command now, let go of or not.
    std::size_t count() const;

    // Asks every running child to stop at once, ends those still running after the grace period,
    // and calls `whenAllEnded` once no runner is running any more: at once when none is, else from
    // the event loop after the last output has ended. A command that starts while the ending is
    // under way is asked to stop as it starts. Never waits on the window thread.
    void endAll(std::function<void()> whenAllEnded);

private:
    void letGo(CommandRunner* runner);
    void runStarted(CommandRunner& runner) override;
    void runEnded(CommandRunner& runner) override;
    void forget(CommandRunner& runner);
    // During an ending: once no command runs any more, its callers are told.
    void endingStepForward();

    std::chrono::milliseconds gracePeriod_;
    std::vector<CommandRunner*> runners_;              // owned; destroyed from the event loop
    std::vector<std::function<void()>> whenAllEnded_;  // not empty while an ending is under way
    QObject context_;                                  // for calls from the event loop
};

}  // namespace quillet
