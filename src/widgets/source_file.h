#pragma once

#include <memory>
#include <optional>
#include <string>

#include "tools/duration_probe.h"

namespace quillet {

// What the windows that take a source video learn about its file.

// The file's length in MB, "0,000" in the user's number format; empty when it is no file.
std::optional<std::string> sourceFileSizeText(const std::string& path);

// Asks ffprobe in the program's folder for the video's running time, on a thread of its own.
std::unique_ptr<DurationProbe> probeRunningTime(const std::string& path);

}  // namespace quillet
