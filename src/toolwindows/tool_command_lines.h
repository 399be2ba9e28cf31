#pragma once

#include <string>

#include "base/default_settings.h"
#include "base/platform_names.h"

namespace quillet {

// The ffmpeg command lines of the MP3 audio tool and the frame-rate tool, character by character.
// Both call ffmpeg without the system's program ending, never quote the program path, and quote
// the source and output paths.

// What the MP3 audio tool encodes with: the source and output paths, the video's rate factor and
// preset (already in lower case), the audio quality and sample rate.
struct Mp3AudioJob {
    std::string source;
    int crf = defaults::numberOf(defaults::kCrf);
    std::string preset = defaults::kStartup.preset;
    int qscale = defaults::kMp3Quality;
    std::string sampleRate = defaults::kSampleRate;
    std::string output;
};

// ... -i "SOURCE" -c:v libx265 -crf C -preset P -codec:a libmp3lame -qscale:a Q -ar S -y "OUT"
std::string mp3AudioCommandLine(const std::string& programFolder, const Mp3AudioJob& job,
                                const PlatformNames& names);

// What the frame-rate tool encodes with: the preset as the job settings hold it (any case), and
// the audio bit rate in kbit/s.
struct FrameRateJob {
    std::string source;
    int framesPerSecond = 30;
    std::string preset;
    std::string audioBitRate;
    std::string sampleRate;
    std::string output;
};

// ... -i "SOURCE" -c:v libx265 -filter:v fps=F -preset P -c:a aac -b:a Ak -ar S -y "OUT"
std::string frameRateCommandLine(const std::string& programFolder, const FrameRateJob& job,
                                 const PlatformNames& names);

}  // namespace quillet
