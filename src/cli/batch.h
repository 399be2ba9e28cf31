#pragma once

#include <cstdio>
#include <filesystem>

#include "cli/cli_options.h"
#include "cli/stop_requests.h"

namespace quillet::cli {

struct Tools {
    std::filesystem::path ffmpeg;
    std::filesystem::path ffprobe;
};

// Exit statuses of the companion.
inline constexpr int kAllDone = 0;
inline constexpr int kSomeFailed = 1;
inline constexpr int kBadUsage = 2;
inline constexpr int kStopped = 130;

// Runs one job per source of `options`, one after the other, reporting on `out` (progress lines,
// JSON or one line per job) and problems on `errors`, and ends with a summary. Gives the exit
// status.
int runBatch(const Options& options, const Tools& tools, StopRequests& stops, std::FILE* out,
             std::FILE* errors, bool terminal);

}  // namespace quillet::cli
