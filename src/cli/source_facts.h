#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillet::cli {

// One stream of a source, as ffprobe tells it.
struct StreamFacts {
    std::string type;   // "video", "audio", "subtitle", "attachment", "data"
    std::string codec;  // ffprobe's name: "h264", "aac", "subrip", ...
    int width = 0;      // a picture's
    int height = 0;
    std::string pixelFormat;       // a picture's: "yuv420p", "yuv444p10le", ...
    std::string averageFrameRate;  // a picture's, as a fraction ("45/2"); empty when unknown
    int channels = 0;              // a sound's
    int sampleRate = 0;            // a sound's, in Hz
    bool attachedPicture = false;  // a cover picture, which ffprobe lists as a video stream
};

// What ffprobe tells of a source (see probeArguments).
struct SourceFacts {
    std::optional<double> seconds;
    std::vector<StreamFacts> streams;  // in the source's order

    // The picture the jobs encode: the first video stream that is not a cover picture.
    const StreamFacts* picture() const;
    bool hasVideo() const { return picture() != nullptr; }
    // The sound tracks, in the source's order.
    std::vector<const StreamFacts*> audioTracks() const;
    bool hasAudio() const { return !audioTracks().empty(); }
};
SourceFacts parseProbeAnswer(const std::string& answer);

// "running time 0:01:05, picture 1920 x 1080, streams: video h264 yuv420p, audio aac 6 channels
// 48000 Hz"
std::string describeFacts(const SourceFacts& facts);

// The same as JSON fields for a probe's end object: ",\"running_seconds\":65.5,\"width\":1920,
// \"height\":1080,\"streams\":[{\"type\":\"video\",\"codec\":\"h264\",...},...]"; a fact not known
// is null or left out.
std::string factFields(const SourceFacts& facts);

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
