#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillet::cli {

// What ffprobe tells of a source (see probeArguments).
struct SourceFacts {
    std::optional<double> seconds;
    bool hasVideo = false;
    bool hasAudio = false;
    int width = 0;
    int height = 0;
    std::vector<std::string> streams;  // "video hevc", "audio aac", ...
};
SourceFacts parseProbeAnswer(const std::string& answer);

// "running time 0:01:05, picture 1920 x 1080, streams: video h264, audio aac"
std::string describeFacts(const SourceFacts& facts);

// The video rate that lands a source of `seconds` on `targetMb` (1 MB = 1,048,576 bytes) beside
// `audioBits` of audio, or why the target cannot be met.
struct TargetRate {
    long long videoBitsPerSecond = 0;
    std::string refusal;  // empty when the rate can be used
};
TargetRate targetRate(double targetMb, double seconds, double audioBits);

// What audio at `kbps` kbit/s (of 1,000 bits, as ffmpeg counts them) takes over `seconds`, at most.
double audioBitsAt(int kbps, double seconds);

}  // namespace quillet::cli
