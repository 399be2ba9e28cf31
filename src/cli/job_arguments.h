#pragma once

#include <string>
#include <vector>

#include "cli/cli_options.h"
#include "cli/source_facts.h"

namespace quillet::cli {

// Where one job reads and writes. Every path is whole and absolute, so that none can be read by
// ffmpeg as an option (a leading "-") or as a protocol (a "name:" in front).
struct JobFiles {
    std::string ffmpeg;
    std::string source;
    std::string output;  // the job's partial output, which becomes the output once it succeeds
};

// The arguments of one ffmpeg run, ffmpeg's path first: the job's options as the program's windows
// use them, with all the source's streams kept (see kept_streams.h); ffmpeg's progress as
// key=value lines on standard output, and the output last. Every value is one argument, never a
// piece of a line. `videoBitsPerSecond`: the target-size rate.
std::vector<std::string> jobArguments(const Options& options, const JobFiles& files,
                                      const SourceFacts& facts, long long videoBitsPerSecond = 0);

// The two passes of a target size share a folder to work in (the statistics file's name must be
// relative: a drive's ":" would end libx265's option early) holding these two files.
inline constexpr const char* kPassStatistics = "passlog";
inline constexpr const char* kPassAudio = "audio.m4a";

// The first pass: the picture analysed into the statistics, nothing written, and the sound tracks
// (when there are some) encoded into kPassAudio, so that the second pass knows their true size.
std::vector<std::string> firstPassArguments(const Options& options, const JobFiles& files,
                                            const SourceFacts& facts, long long videoBitsPerSecond);

// The second pass: the picture at the rate the measured sound leaves, with that sound copied in
// and the source's other streams kept.
std::vector<std::string> secondPassArguments(const Options& options, const JobFiles& files,
                                             const SourceFacts& facts,
                                             long long videoBitsPerSecond);

// The pictures the job's encoder holds back before it hands one on to the file: its look-ahead,
// a run of B-frames and a few in its threads.
double heldPictures(const Options& options);

// One sample of a forecast: `length` seconds of the picture from `start` (a single picture when
// 0), encoded as the job would, into a bare stream (no container, no sound) that is measured and
// thrown away.
std::vector<std::string> sampleArguments(const Options& options, const JobFiles& files,
                                         const SourceFacts& facts, double start, double length,
                                         long long videoBitsPerSecond = 0);

// The ffprobe arguments that ask for the time and size of each packet of the first picture
// stream, one key=value a line; the packets are read, not decoded.
std::vector<std::string> packetArguments(const std::string& ffprobe, const std::string& source);

// The ffprobe arguments that ask for the running time and each stream's kind, codec, picture
// size and format, channels, sample rate and whether it is a cover picture, one key=value a line
// (see parseProbeAnswer).
std::vector<std::string> probeArguments(const std::string& ffprobe, const std::string& source);

}  // namespace quillet::cli
