#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text_format.h"

namespace quillet {

class ProgressDisplay;

// The caption endings: the compression jobs say "Completed", the frame-rate tool "Complete".
inline constexpr std::string_view kCaptionCompleted = "% Completed";
inline constexpr std::string_view kCaptionComplete = "% Complete";

// What reading a piece needs to know besides the piece itself.
struct ProgressSoFar {
    std::string_view videoSeconds;  // the source's running time, as the job settings hold it
    double encodedSeconds = 0;      // EncodedSeconds before this piece
    std::int16_t speedLevel = 0;    // SpeedLevel before this piece
    bool followsTime = true;        // whether the window follows ffmpeg's "time" at all
    std::string_view captionEnding = kCaptionCompleted;
};

// What one piece of ffmpeg's output (at most 256 bytes, as the runner hands it on) says about the
// run. The piece is looked at by itself, never joined with the one before: the values behind
// "time", "size=" and "speed" are cut out by fixed offsets, so a value split across two pieces is
// not recognised.
struct ProgressReading {
    bool timeSeen = false;                   // the piece holds "time": the bar follows it
    std::optional<double> barMaximum;        // the source's seconds, when they are a number
    double encodedSeconds = 0;               // EncodedSeconds after this piece: the bar's value
    std::int16_t speedLevel = 0;             // SpeedLevel after this piece
    std::optional<std::string> writtenText;  // "Writen: 0,013Mb"
    std::optional<std::string> caption;      // "Compression Progress 42.17% Completed", only from
                                             // a piece whose time gives more than "00.00" of a
                                             // known running time
};

// Reads `piece`. The speed level comes from "speed" and is then lowered by one for every piece, so
// each piece without a readable speed lowers it once more.
ProgressReading readProgressPiece(std::string_view piece, const ProgressSoFar& soFar,
                                  const FormatLocale& locale);

// Shows a reading, in the order a piece's stages run: the bar's end, the size written, the bar,
// the caption with its highlight, the speed cells.
void showProgressReading(const ProgressReading& reading, bool followsTime,
                         ProgressDisplay& display);

}  // namespace quillet
