#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "cli/cli_options.h"
#include "cli/ffmpeg_run.h"
#include "cli/forecast.h"
#include "cli/job_arguments.h"
#include "cli/source_facts.h"

namespace quillet::cli {

// What a two-pass target size needs of the job around it.
struct TwoPassJob {
    const Options& options;
    const JobFiles& files;
    const SourceFacts& facts;  // the running time is known
    StopRequests& stops;
    // Runs ffmpeg as one encode of the job, in `folder`, showing its progress and telling it to
    // `watch` too when there is one.
    std::function<RunOutcome(std::vector<std::string> arguments,
                             const std::filesystem::path& folder, const ProgressHandler& watch)>
        encode;
    // Each second pass is about to start: the bytes it aims at, and the source's cost along its
    // length as the first pass went.
    std::function<void(double aimedBytes, const ComplexityProfile& pace)> secondPassStarts;
};

// The first pass at `firstRate`, the rate the audio's nominal size leaves; then the second pass at
// the rate the audio's measured size leaves, run again at corrected rates until it lands within 2%
// under the target or its tries are spent. An output over the target is never kept: the outcome
// fails when no try came under. `note` tells how the search ended when it did not land.
RunOutcome twoPassEncode(const TwoPassJob& job, long long firstRate, std::string& note);

}  // namespace quillet::cli
