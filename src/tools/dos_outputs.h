#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "tools/output_waiter.h"

namespace quillet {

class ChildProcess;
struct RunPieces;

// Runs one console command line (a tool invocation) as a hidden child process, without a shell,
// and hands everything the child writes, standard output and standard error mixed in the order
// written, to its owner piece by piece. The bytes are kept as they are.
//
// A run is either awaited (ExecuteCommand, for threads that may block) or started and then fed to
// the owner as the owner's thread gets round to it (StartCommand and DeliverOutputs, for windows,
// which must never wait). Either way a thread of the runner's own reads the pipe, so the child
// never stalls on a full pipe whatever the owner is doing.
class DOSOutputs {
public:
    using OutputsHandler = std::function<void(const std::string& CommandOutputs)>;
    using ExecutionHandler = std::function<void(bool executing)>;

    DOSOutputs() = default;
    DOSOutputs(const DOSOutputs&) = delete;
    DOSOutputs& operator=(const DOSOutputs&) = delete;

    void setCommandLine(std::string commandLine) { commandLine_ = std::move(commandLine); }
    const std::string& CommandLine() const { return commandLine_; }

    // Everything read during the most recent run that started.
    const std::string& Outputs() const { return outputs_; }

    // Runs `commandLine` (stored first when not empty) or else the stored command line, raises
    // ReceiveOutputs for every piece read and returns all output once the child's output has
    // ended, without waiting for the child itself. Returns "" and raises nothing when the command
    // line is empty, the program cannot be started, or this object is already running a command;
    // a start that fails leaves Outputs as it was.
    std::string ExecuteCommand(const std::string& commandLine = {});

    // Starts the command as ExecuteCommand does and returns at once: false, with nothing raised,
    // when nothing could be started. From then on `wakeup` is told, on the reading thread, each
    // time output is waiting; the owner then calls DeliverOutputs on its own thread.
    bool StartCommand(const std::string& commandLine, std::shared_ptr<OutputWakeup> wakeup);

    // The folder the next runs work in, where a relative name in a command lands; this
    // program's own when empty (as it starts).
    void setWorkingFolder(std::string folder) { workingFolder_ = std::move(folder); }

    // Raises ReceiveOutputs with every piece read so far, in order, on the calling thread, and
    // returns true once the last, empty piece has been raised: the run is over. Called again from
    // inside a handler, it leaves the pieces to the call under way and returns false.
    bool DeliverOutputs();

    // Whether a run has started and its output not yet all been delivered.
    bool Executing() const { return executing_; }

    // Ask the child of the current run to end, politely ("q" on its input and, where the system
    // has it, the termination signal) or firmly. Safe from any thread, during a run or not;
    // without a child still running they do nothing.
    void StopChild();
    void KillChild();

    // Raised with each piece of output in the order read (at most 256 bytes, exactly the bytes
    // read), then once with "" when the output has ended.
    OutputsHandler ReceiveOutputs;

    // Told true once a child has started and false once its run is over.
    ExecutionHandler ExecutionChanged;

private:
    std::shared_ptr<ChildProcess> currentChild() const;
    void endRun();

    std::string commandLine_;
    std::string workingFolder_;
    std::string outputs_;
    bool executing_ = false;
    bool delivering_ = false;
    std::shared_ptr<RunPieces> run_;       // the current run's pieces, while executing
    mutable std::mutex childMutex_;        // StopChild and KillChild may come from other threads
    std::shared_ptr<ChildProcess> child_;  // the child of the current or the latest run
};

}  // namespace quillet
