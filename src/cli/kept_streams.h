#pragma once

#include <string>
#include <vector>

#include "cli/cli_options.h"
#include "cli/source_facts.h"

namespace quillet::cli {

// What an output keeps of its source: the picture, every sound track, the subtitles its container
// can hold (converted to the container's text format where needed), the fonts a Matroska file
// carries, and the chapters and tags, which ffmpeg takes from the first input by itself. The
// frame timing is the source's, so a variable frame rate stays variable.

// How the sound tracks are encoded.
enum class SoundCodec { Aac, Mp3, Copy };

// The AAC rate of one track: the one asked for, or the companion's stereo rate shared out per
// channel, so that a 5.1 track gets three times a stereo one's.
int trackKbps(const Options& options, const StreamFacts& track);

// What all of a source's tracks take together, in kbit/s at `trackKbps`.
int soundKbps(const Options& options, const SourceFacts& facts);

// The output's streams for ffmpeg, after the picture's encoder settings: "-map" for each kept
// stream of input 0 (the picture first), the codec of each sound track and subtitle, and the
// frame timing. `sound`: how the tracks are encoded; from `soundInput` when the tracks were
// encoded earlier (a first pass's file, input 1), then copied. `ending`: the output's, such as
// ".mkv", which tells the container.
std::vector<std::string> keptStreamArguments(const Options& options, const SourceFacts& facts,
                                             const std::string& ending, SoundCodec sound,
                                             int soundInput = 0);

// The sound tracks alone, encoded as keptStreamArguments would, for a first pass's sound file.
std::vector<std::string> soundArguments(const Options& options, const SourceFacts& facts);

// The picture's filters, format and timing, after its encoder settings: `filters` are the job's
// own, run first; then what makes a picture players can show (HEVC 4:2:0 at 8 or 10 bits, with
// an even width and height, which the scale tool's sizes are already).
std::vector<std::string> pictureArguments(const Options& options, const SourceFacts& facts,
                                          std::vector<std::string> filters = {});

// What the output does not keep as it was, one short phrase each ("subtitle hdmv_pgs_subtitle
// left out: .mp4 cannot hold it"), for the job's message.
std::vector<std::string> keepingNotes(const Options& options, const SourceFacts& facts,
                                      const std::string& ending);

}  // namespace quillet::cli
