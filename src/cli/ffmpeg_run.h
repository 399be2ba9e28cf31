#pragma once

#include <deque>
#include <functional>
#include <string>

#include "cli/job_progress.h"
#include "cli/stop_requests.h"
#include "tools/program_lookup.h"

namespace quillet::cli {

// How one run of ffmpeg (or ffprobe) went.
struct RunOutcome {
    bool started = false;
    int exitCode = -1;
    std::deque<std::string> lastLines;  // the last lines that were not progress, for messages
    std::string output;                 // everything it wrote, when asked to keep it
    double processorSeconds = 0;        // user and system time it used
    bool succeeded() const { return started && exitCode == 0; }
};

// What is told of each block of progress.
using ProgressHandler = std::function<void(const Progress&)>;

// Runs `call` in `folder` (this program's own when empty) until it ends, handing each block of
// progress to `onProgress`; the stop requests stop it. `keepOutput`: keep all it writes.
RunOutcome runTool(const ProgramCall& call, const std::string& folder, StopRequests& stops,
                   const ProgressHandler& onProgress, bool keepOutput = false);

}  // namespace quillet::cli
