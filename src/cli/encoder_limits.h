#pragma once

#include <string_view>

namespace quillet::cli {

// What the encoders take, checked before any job runs rather than failing in ffmpeg file after
// file.

// libx265's presets, fastest first, with the settings by which each shapes its picture groups: a
// second pass takes only statistics of the same shape, and the look-ahead must reach past the
// longest run of B-frames. The look-ahead is the preset's own.
struct X265Preset {
    std::string_view name;
    int bFrames;
    bool weightedPrediction;
    int sceneCut;
    int lookahead;  // pictures
};
inline constexpr X265Preset kX265Presets[] = {
    {"ultrafast", 3, false, 0, 5}, {"superfast", 3, false, 40, 10}, {"veryfast", 4, true, 40, 15},
    {"faster", 4, true, 40, 15},   {"fast", 4, true, 40, 15},       {"medium", 4, true, 40, 20},
    {"slow", 4, true, 40, 25},     {"slower", 8, true, 40, 40},     {"veryslow", 8, true, 40, 40},
    {"placebo", 8, true, 40, 60}};

// The pictures libx265 holds back before it hands one on, with a look-ahead of `lookahead`: the
// look-ahead, a run of B-frames, and a few in its threads (25 in all at veryfast, as measured
// against an output's growth).
constexpr int heldPictures(const X265Preset& preset, int lookahead) {
    constexpr int kThreadedPictures = 6;
    return lookahead + preset.bFrames + kThreadedPictures;
}

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
