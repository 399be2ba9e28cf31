#include "cli/source_facts.h"

#include <algorithm>
#include <cmath>

#include "cli/job_progress.h"
#include "cli/key_value_lines.h"
#include "tools/exact_number.h"

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

// A frame rate as ffprobe gives it, "N/D"; empty unless both are whole numbers above 0.
std::string frameRate(const std::string& fraction) {
    const std::size_t slash = fraction.find('/');
    if (slash == std::string::npos) return {};
    const auto numerator = exactNumber<long long>(fraction.substr(0, slash));
    const auto denominator = exactNumber<long long>(fraction.substr(slash + 1));
    return numerator && denominator && *numerator > 0 && *denominator > 0 ? fraction : "";
}

}  // namespace

const StreamFacts* SourceFacts::picture() const {
    for (const StreamFacts& stream : streams) {
        if (stream.type == "video" && !stream.attachedPicture) return &stream;
    }
    return nullptr;
}

std::vector<const StreamFacts*> SourceFacts::audioTracks() const {
    std::vector<const StreamFacts*> tracks;
    for (const StreamFacts& stream : streams) {
        if (stream.type == "audio") tracks.push_back(&stream);
    }
    return tracks;
}

SourceFacts parseProbeAnswer(const std::string& answer) {
    SourceFacts facts;
    const auto whole = [](const std::string& value) {
        return std::max(0, exactNumber<int>(value).value_or(0));
    };
    forEachKeyValue(answer, [&](const std::string& key, const std::string& value) {
        if (key == "index") {
            facts.streams.emplace_back();  // each stream's entries start with its index
            return;
        }
        if (key == "duration") {
            const auto seconds = exactNumber<double>(value);
            if (seconds && std::isfinite(*seconds) && *seconds > 0) facts.seconds = seconds;
            return;
        }
        if (facts.streams.empty()) return;
        StreamFacts& stream = facts.streams.back();
        if (key == "codec_type") {
            stream.type = value;
        } else if (key == "codec_name") {
            stream.codec = value;
        } else if (key == "width") {
            stream.width = whole(value);
        } else if (key == "height") {
            stream.height = whole(value);
        } else if (key == "pix_fmt") {
            stream.pixelFormat = value;
        } else if (key == "avg_frame_rate") {
            stream.averageFrameRate = frameRate(value);
        } else if (key == "channels") {
            stream.channels = whole(value);
        } else if (key == "sample_rate") {
            stream.sampleRate = whole(value);
        } else if (key == "DISPOSITION:attached_pic") {
            stream.attachedPicture = value == "1";
        }
    });
    return facts;
}

std::string describeFacts(const SourceFacts& facts) {
    std::string text = "running time " + (facts.seconds ? clockText(*facts.seconds) : "unknown");
    if (const StreamFacts* picture = facts.picture(); picture && picture->width > 0) {
        text +=
            ", picture " + std::to_string(picture->width) + " x " + std::to_string(picture->height);
    }
    text += ", streams:";
    for (std::size_t i = 0; i < facts.streams.size(); ++i) {
        const StreamFacts& stream = facts.streams[i];
        text += (i == 0 ? " " : ", ") + stream.type + " " + stream.codec;
        if (stream.attachedPicture) text += " cover picture";
        if (!stream.pixelFormat.empty()) text += " " + stream.pixelFormat;
        if (stream.channels > 0) text += " " + std::to_string(stream.channels) + " channels";
        if (stream.sampleRate > 0) text += " " + std::to_string(stream.sampleRate) + " Hz";
    }
    return text;
}

std::string factFields(const SourceFacts& facts) {
    const StreamFacts* picture = facts.picture();
    std::string json = ",\"running_seconds\":" + jsonNumber(facts.seconds, 3) +
                       ",\"width\":" + (picture ? std::to_string(picture->width) : "null") +
                       ",\"height\":" + (picture ? std::to_string(picture->height) : "null") +
                       ",\"streams\":[";
    for (std::size_t i = 0; i < facts.streams.size(); ++i) {
        const StreamFacts& stream = facts.streams[i];
        json += std::string(i == 0 ? "" : ",") + "{\"type\":" + jsonString(stream.type) +
                ",\"codec\":" + jsonString(stream.codec);
        if (stream.type == "video") {
            json += ",\"width\":" + std::to_string(stream.width) +
                    ",\"height\":" + std::to_string(stream.height) +
                    ",\"pixel_format\":" + jsonString(stream.pixelFormat) +
                    ",\"cover_picture\":" + (stream.attachedPicture ? "true" : "false");
        } else if (stream.type == "audio") {
            json += ",\"channels\":" + std::to_string(stream.channels) +
                    ",\"sample_rate\":" + std::to_string(stream.sampleRate);
        }
        json += "}";
    }
    return json + "]";
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
