#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/program_state.h"
#include "app/text_format.h"

namespace quillet {

// What one piece of ffmpeg's output (at most 256 bytes, as the runner hands it on) says about the
// run. The piece is looked at by itself, never joined with the one before: the values behind
// "time", "size=" and "speed" are cut out by fixed offsets, so a value split across two pieces is
// not recognised.
struct ProgressReading {
    bool timeSeen = false;                   // the piece holds "time": the bar follows it
    std::optional<double> barMaximum;        // the source's seconds, when they are a number
    double barValue = 0;                     // EncodedSeconds after this piece
    std::optional<std::string> writtenText;  // "Writen: 0,013Mb"
    std::optional<std::string> percentText;  // "42.17", only from a piece whose time gives more
                                             // than "00.00" of a known running time
};

// Reads `piece` and updates the program-wide EncodedSeconds (from "time", when withTime) and
// SpeedLevel (from "speed", then lowered by one for every piece, so each piece without a readable
// speed lowers it once more). Job windows that do not follow the time pass withTime = false.
ProgressReading readProgressPiece(std::string_view piece, bool withTime, ProgramState& state,
                                  const FormatLocale& locale);

// The progress caption of a compression job: "Compression Progress 42.17% Completed".
std::string progressCaption(const std::string& percentText);

}  // namespace quillet
