#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "tools/output_waiter.h"

namespace quillet {

class ChildProcess;

// Runs one console command line (a tool invocation) as a hidden child process, without a shell,
// and hands everything the child writes, standard output and standard error mixed in the order
// written, to its owner piece by piece. The bytes are kept as they are.
class DOSOutputs {
public:
    using OutputsHandler = std::function<void(const std::string& CommandOutputs)>;
    using ExecutionHandler = std::function<void(bool executing)>;

    // `waiter` decides how ExecuteCommand waits for the next piece; the default blocks the thread.
    explicit DOSOutputs(
        std::shared_ptr<OutputWaiter> waiter = std::make_shared<BlockingOutputWaiter>());
    ~DOSOutputs();
    DOSOutputs(const DOSOutputs&) = delete;
    DOSOutputs& operator=(const DOSOutputs&) = delete;

    void setCommandLine(std::string commandLine);
    const std::string& CommandLine() const;

    // Everything read during the most recent run that started.
    const std::string& Outputs() const;

    // Runs `commandLine` (stored first when not empty) or else the stored command line, raises
    // ReceiveOutputs for every piece read and returns all output once the child's output has
    // ended, without waiting for the child itself. Returns "" and raises nothing when the command
    // line is empty, the program cannot be started, or this object is already running a command
    // (a handler calling it again); a start that fails leaves Outputs as it was.
    std::string ExecuteCommand(const std::string& commandLine = {});

    // Ask the child of the current run to end, politely ("q" on its input and, where the system
    // has it, the termination signal) or firmly. Safe from any thread, during a run (from a
    // handler or a timer) or not; without a child still running they do nothing.
    void StopChild();
    void KillChild();

    // Raised inside ExecuteCommand, on its thread, with each piece of output in the order read (at
    // most 256 bytes, exactly the bytes read), then once with "" when the output has ended.
    OutputsHandler ReceiveOutputs;

    // Told true once a child has started and false just before ExecuteCommand returns, so that a
    // registry can follow which runners are running.
    ExecutionHandler ExecutionChanged;

private:
    std::shared_ptr<ChildProcess> currentChild() const;

    std::string commandLine_;
    std::string outputs_;
    std::shared_ptr<OutputWaiter> waiter_;
    bool executing_ = false;
    mutable std::mutex childMutex_;        // StopChild and KillChild may come from other threads
    std::shared_ptr<ChildProcess> child_;  // the child of the current or the latest run
};

}  // namespace quillet
