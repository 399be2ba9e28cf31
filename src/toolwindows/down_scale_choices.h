#pragma once

#include <array>
#include <string>

#include "base/platform_names.h"

namespace quillet {

// What the down-scale tool offers, by option, and its command line.

inline constexpr std::array<const char*, 4> kResolutionCaptions = {
    "426 x 240 (240p)", "640 x 360 (360p)", "854 x 480 (480p)", "1280 x 720 (720p)"};
// What each resolution option writes under "New Selected Resolution", which the command then
// reads back as the scale.
inline constexpr std::array<const char*, 4> kScales = {"426:240", "640:360", "854:480", "1280:720"};
inline constexpr std::array<int, 6> kDownScaleCrfs = {20, 25, 30, 35, 40, 45};
inline constexpr std::array<int, 3> kDownScaleQScales = {5, 7, 9};

struct DownScaleJob {
    std::string source;
    std::string scale = "426:240";  // W:H
    bool setCrf = false;            // "Set CRF" ticked
    bool mp3Audio = false;          // "Encode Video Audio to MP3 " ticked
    int crf = 25;
    int qscale = 7;
    std::string output;
};

// ... -i "SOURCE" -c:v libx265 [-crf R] -vf scale=W:H,setsar=1:1 [-codec:a libmp3lame -qscale:a Q]
// -y "OUT". With "Set CRF" alone the rate factor is always 40; only with MP3 audio as well is it
// the one chosen. ffmpeg is called without the system's program ending and is not quoted.
std::string downScaleCommandLine(const std::string& programFolder, const DownScaleJob& job,
                                 const PlatformNames& names);

}  // namespace quillet
