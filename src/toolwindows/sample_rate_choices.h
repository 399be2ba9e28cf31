#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

// The sample-rate chooser's options, in hertz although their unit reads "kHz": the captions are
// the only table of rates there is.
inline constexpr std::array<const char*, 13> kChooserRateCaptions = {
    "8000kHz",  "11025kHz", "16000kHz",  "22050kHz",  "32000kHz",  "44100kHz", "48000kHz",
    "88200kHz", "96000kHz", "176400kHz", "192000kHz", "352800kHz", "384000kHz"};

// The rate an option stands for: its caption with every "kHz" (in any case) taken out and the
// blanks around it trimmed ("22050kHz" gives "22050"). Empty for a caption without "kHz".
std::optional<std::string> sampleRateOfCaption(std::string_view caption);

// The main window offers two of the rates itself, as its items 0 (44100 Hz) and 1 (48000 Hz).
// The main window's item that stands for a chooser option; empty for the other eleven.
std::optional<int> mainWindowRateItem(int chooserOption);
// The chooser option of the main window's selected item; empty when neither is selected.
std::optional<int> chooserOptionOf(std::optional<int> mainWindowItem);

}  // namespace quillet
