#pragma once

#include <string>
#include <vector>

#include "cli/cli_options.h"
#include "cli/forecast.h"
#include "cli/source_facts.h"
#include "cli/stop_requests.h"

namespace quillet::cli {

// The source's cost along its running time (known in `facts`), as the job would encode it: its
// packets read with ffprobe, and the forecast's samples encoded with ffmpeg in a folder of their
// own that is gone afterwards. A sample ffmpeg fails on is left out; empty when stopped or when no
// sample could be encoded.
ComplexityProfile measureComplexity(const Options& options, const std::string& ffmpeg,
                                    const std::string& ffprobe, const std::string& source,
                                    const SourceFacts& facts, long long videoBitsPerSecond,
                                    double audioBytesPerSecond, StopRequests& stops);

// The source's cost along its running time for a compress or estimate job, from samples encoded
// as the job will encode them; an average rate is held to. Empty for the tools' jobs (scale, fps,
// mp3), which encode otherwise than the samples would, and without a running time.
ComplexityProfile jobProfile(const Options& options, const std::string& ffmpeg,
                             const std::string& ffprobe, const std::string& source,
                             const SourceFacts& facts, long long videoBitsPerSecond,
                             StopRequests& stops);

}  // namespace quillet::cli
