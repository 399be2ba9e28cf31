#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "tools/program_lookup.h"

namespace quillet {

// One child process started from a command line, hidden and without a shell, whose standard output
// and standard error arrive mixed on one pipe and whose standard input is a pipe held here. The
// system-specific part lives in one source file per system.
class ChildProcess {
public:
    // Empty when the program cannot be started. `workingFolder`: the folder the child works in
    // (where a relative name in its command lands); this program's own when empty.
    static std::shared_ptr<ChildProcess> start(const std::string& commandLine,
                                               const std::string& workingFolder = {});

    // Starts the program file `call.file` with exactly the arguments `call.arguments` (its own name
    // first), each of which reaches it as one argument whatever it holds: blanks, quotes, a
    // leading "-" or a line break. Empty when the program cannot be started.
    static std::shared_ptr<ChildProcess> start(const ProgramCall& call,
                                               const std::string& workingFolder = {});

    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Blocks until the child writes; the number of bytes read, 0 once the output has ended (or
    // cannot be read any more). For the reading thread only.
    std::size_t read(char* buffer, std::size_t capacity);

    // Closes the child's input, waits until the child has ended and releases it, so that no
    // finished child is left behind; from then on it is never signalled again. For the reading
    // thread, after the output has ended. Gives the child's exit code; -1 when a signal ended it.
    int awaitExit();

    // The processor time (user and system) the child used, once awaitExit has returned; 0 before.
    double processorSeconds() const;

    // Asks the child to end: "q" on its standard input (which ffmpeg honours) and, where the system
    // has it, the termination signal. Does nothing once the child has ended. Any thread.
    void askToStop();

    // Ends the child at once. Does nothing once the child has ended. Any thread.
    void forceEnd();

private:
    struct Native;
    explicit ChildProcess(std::unique_ptr<Native> native);
    std::unique_ptr<Native> native_;
};

}  // namespace quillet
