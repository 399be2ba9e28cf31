#pragma once

// The job settings the programs begin with, as the texts the window program writes. Its start-up
// and its reset write different texts for some of them, on purpose: those stand side by side in
// kStartup and kReset.

#include <string_view>

namespace quillet::defaults {

// The settings whose start-up and reset texts differ.
struct JobTexts {
    const char* preset;
    const char* audioBitRate;  // kbit/s
    const char* averageRate;   // in kAverageRateUnit
    const char* qp;
    const char* bufferSize;  // in kRateUnit; start-up leaves the program state's empty
};

// What start-up writes into the program state, and what the companion takes. The main window's QP
// and buffer-size labels go back to these after a reset.
inline constexpr JobTexts kStartup{"veryfast", "160", "900", "14", "1.1"};
// What the reset writes into the program state; its preset and average-rate labels show these too.
inline constexpr JobTexts kReset{"VeryFast", "192k", "920", "20", "1"};

// The settings every writer gives the same text.
inline constexpr char kCrf[] = "20";
inline constexpr char kLookAhead[] = "18";
inline constexpr char kSampleRate[] = "44100";
inline constexpr char kSampleRateStatus[] = "44100Hz";  // the main window's status cell
inline constexpr char kMinRate[] = "1.1";               // in kRateUnit
inline constexpr char kMaxRate[] = "2.0";               // in kRateUnit
inline constexpr char kAverageRateUnit[] = "k";
inline constexpr char kRateUnit[] = "M";
inline constexpr int kMp3Quality = 5;  // the MP3 encoder's quality scale, 1 (best) to 9

static_assert(std::string_view(kSampleRateStatus).starts_with(kSampleRate));

// The number one of the whole-number texts above stands for; a text that is not one stops the
// build.
consteval int numberOf(std::string_view text) {
    int value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') throw "not a whole number";
        value = value * 10 + (digit - '0');
    }
    return value;
}

}  // namespace quillet::defaults
