#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/platform_names.h"

namespace quillet {

// What the program shows while it asks for a video's picture size, and keeps when no answer comes.
inline constexpr const char* kResolutionPlaceholder = "0000 x 000";

// The ffprobe command that asks for the width and height of every video stream, one "width=" and
// one "height=" line each. The program path is not quoted; the video path is.
std::string resolutionProbeCommandLine(const std::string& programFolder,
                                       const std::string& videoPath, const PlatformNames& names);

// The picture size in one piece of ffprobe's answer, as "1920 x 1080": the width is what stands
// between the piece's first six characters ("width=") and the first "height=" (any case), the
// height what follows that. Line ends around the numbers, of either system, are dropped, and so is
// one more character after a number. Empty for a piece without "height=", such as an error text
// or the answer for a file without a picture.
std::optional<std::string> parseResolutionPiece(std::string_view piece);

}  // namespace quillet
