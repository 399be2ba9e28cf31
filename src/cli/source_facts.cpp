#include "cli/source_facts.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "cli/job_progress.h"
#include "cli/key_value_lines.h"

namespace quillet::cli {

namespace {

// The container's own bytes and the encoder's overshoot are kept out of the target: the video
// aims at this share of what is left beside the audio.
constexpr double kVideoShare = 0.99;
// Below this the encoder cannot keep to a rate at all.
constexpr double kLowestVideoBitsPerSecond = 16000;
// The highest rate the companion hands on, as for --bitrate: a large target over a very short
// clip asks for more than any encoder can use (or a 64-bit count can hold).
constexpr double kHighestVideoBitsPerSecond = 2000e6;

}  // namespace

SourceFacts parseProbeAnswer(const std::string& answer) {
    SourceFacts facts;
    std::string codec;
    forEachKeyValue(answer, [&](const std::string& key, const std::string& value) {
        if (key == "codec_name") {
            codec = value;
        } else if (key == "codec_type") {
            facts.streams.push_back(value + " " + codec);
            facts.hasVideo = facts.hasVideo || value == "video";
            facts.hasAudio = facts.hasAudio || value == "audio";
        } else if ((key == "width" || key == "height") && facts.hasVideo) {
            int& size = key == "width" ? facts.width : facts.height;
            if (size == 0) size = std::atoi(value.c_str());
        } else if (key == "duration") {
            char* end = nullptr;
            const double seconds = std::strtod(value.c_str(), &end);
            if (end != value.c_str() && *end == '\0' && std::isfinite(seconds) && seconds > 0) {
                facts.seconds = seconds;
            }
        }
    });
    return facts;
}

std::string describeFacts(const SourceFacts& facts) {
    std::string text = "running time " + (facts.seconds ? clockText(*facts.seconds) : "unknown");
    if (facts.width > 0 && facts.height > 0) {
        text += ", picture " + std::to_string(facts.width) + " x " + std::to_string(facts.height);
    }
    text += ", streams:";
    for (std::size_t i = 0; i < facts.streams.size(); ++i) {
        text += (i == 0 ? " " : ", ") + facts.streams[i];
    }
    return text;
}

TargetRate targetRate(double targetMb, double seconds, double audioBits) {
    const double targetBits = targetMb * kBytesPerMb * 8;
    const double videoBitsPerSecond = (targetBits * kVideoShare - audioBits) / seconds;
    if (videoBitsPerSecond < kLowestVideoBitsPerSecond) {
        const double neededBits = audioBits + kLowestVideoBitsPerSecond * seconds;
        return {0, "a target of " + megabytesText(targetMb * kBytesPerMb, 2) +
                       " is too small: the audio with the least video needs " +
                       megabytesText(neededBits / 8 / kVideoShare, 2)};
    }
    return {std::llround(std::min(videoBitsPerSecond, kHighestVideoBitsPerSecond)), {}};
}

double audioBitsAt(int kbps, double seconds) {
    return kbps * 1000.0 * seconds;
}

}  // namespace quillet::cli
