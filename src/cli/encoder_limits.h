#pragma once

#include <string_view>

namespace quillet::cli {

// What the encoders take, checked before any job runs rather than failing in ffmpeg file after
// file.

// libx265's presets, fastest first, with the settings by which each shapes its picture groups: a
// second pass takes only statistics of the same shape, and the look-ahead must reach past the
// longest run of B-frames.
struct X265Preset {
    std::string_view name;
    int bFrames;
    bool weightedPrediction;
    int sceneCut;
};
inline constexpr X265Preset kX265Presets[] = {
    {"ultrafast", 3, false, 0}, {"superfast", 3, false, 40}, {"veryfast", 4, true, 40},
    {"faster", 4, true, 40},    {"fast", 4, true, 40},       {"medium", 4, true, 40},
    {"slow", 4, true, 40},      {"slower", 8, true, 40},     {"veryslow", 8, true, 40},
    {"placebo", 8, true, 40}};

// The preset of that name (libx265 reads it as it is written: "VeryFast" is none); none for an
// unknown one.
constexpr const X265Preset* x265Preset(std::string_view name) {
    for (const X265Preset& preset : kX265Presets) {
        if (preset.name == name) return &preset;
    }
    return nullptr;
}

// The sample rates in Hz, ascending, that ffmpeg's AAC encoder and libmp3lame take; of
// libmp3lame's, those an .mp4 holds too (not 8000, 11025 or 12000).
inline constexpr int kAacSampleRates[] = {7350,  8000,  11025, 12000, 16000, 22050, 24000,
                                          32000, 44100, 48000, 64000, 88200, 96000};
inline constexpr int kMp3SampleRates[] = {16000, 22050, 24000, 32000, 44100, 48000};

}  // namespace quillet::cli
