#pragma once

#include <optional>
#include <string>

#include "app/program_state.h"
#include "base/text_format.h"

namespace quillet {

// The target-size arithmetic of the main window. Sizes are MB of 1,048,576 bytes and bit rates
// kbit/s of 1,024 bits, so one MB is 8192 kbit. Each step that cannot be computed (a box that is
// empty, not a number, or zero where it divides) is left out without a message, so the boxes it
// would have written keep their text.

// What a new source size (the text of the "Original Size" box, "0,000" form) does to the
// target-size slider and the status strip.
struct SourceSizeChange {
    std::optional<int> sliderMaximum;   // the size as a whole number
    std::optional<int> sliderPosition;  // a quarter of the size, halves to even
    std::string statusText;             // "Init Size: " + the box text + "Mb"
};
SourceSizeChange sourceSizeChanged(const std::string& sourceSizeText, const FormatLocale& locale);

// What moving the target-size slider to `position` (whole MB) shows, given the texts of the
// source-size box, the running-time box (whole seconds) and the audio bit-rate label (kbit/s).
struct TargetSizeChange {
    std::optional<std::string> targetText;  // position as "0,000"
    std::optional<std::string> shareText;   // "Target Size - Compress to " + percent + "% of ..."
    std::optional<std::string> bitRate;     // round(size x 8192 / seconds - audio, 3) as text
};
TargetSizeChange targetSizeMoved(int position, const std::string& sourceSizeText,
                                 const std::string& videoSecondsText,
                                 const std::string& audioBitRateText, const FormatLocale& locale);

// The bit-rate step of starting a job, on the program-wide values: drops a trailing "k" from
// AudioBitRate (in place), then VideoBitRate = round(TargetSizeMb x 8192 / VideoSeconds -
// AudioBitRate, 3) as the shortest number text. There is no floor: a small target over a long
// video gives a small or negative rate.
void applyBitRateStep(ProgramState& state, const FormatLocale& locale);

}  // namespace quillet
