#pragma once

#include <string>
#include <vector>

#include "cli/cli_options.h"

namespace quillet::cli {

// Where one job reads and writes. Every path is whole and absolute, so that none can be read by
// ffmpeg as an option (a leading "-") or as a protocol (a "name:" in front).
struct JobFiles {
    std::string ffmpeg;
    std::string source;
    std::string output;
};

// Which run of a job: the only one, or one of the two passes of a two-pass target size. The
// passes share a statistics file named `passLog`, relative to the folder ffmpeg works in (an
// absolute one could hold a drive's ":", which libx265 reads as the end of the option).
enum class Pass { Only, First, Second };

// The arguments of one ffmpeg run, ffmpeg's path first: the job's options as the program's windows
// use them, ffmpeg's progress as key=value lines on standard output, and the output last. Every
// value is one argument, never a piece of a line. `videoBitsPerSecond`: the target-size rate.
std::vector<std::string> jobArguments(const Options& options, const JobFiles& files,
                                      long long videoBitsPerSecond = 0, Pass pass = Pass::Only,
                                      const std::string& passLog = "passlog");

// The ffprobe arguments that ask for the running time, the picture size and the streams, one
// key=value a line.
std::vector<std::string> probeArguments(const std::string& ffprobe, const std::string& source);

}  // namespace quillet::cli
