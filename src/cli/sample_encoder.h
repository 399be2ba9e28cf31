#pragma once

#include <string>
#include <vector>

#include "cli/cli_options.h"
#include "cli/forecast.h"
#include "cli/stop_requests.h"

namespace quillet::cli {

// Encodes the forecast's samples of `source` (`seconds` long) as the job would, in a folder of
// their own that is gone afterwards, and measures each. A sample ffmpeg fails on is left out;
// none at all when stopped.
std::vector<SampleMeasure> encodeSamples(const Options& options, const std::string& ffmpeg,
                                         const std::string& source, double seconds,
                                         long long videoBitsPerSecond, StopRequests& stops);

}  // namespace quillet::cli
