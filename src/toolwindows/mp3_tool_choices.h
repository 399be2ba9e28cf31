#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

// What the MP3 audio tool offers and how it shows a choice.

// The sample-rate list; "44100kHz" is chosen when the window loads.
inline constexpr std::array<const char*, 5> kMp3SampleRateItems = {
    "16000kHz", "22050kHz", "32000kHz", "44100kHz", "48000kHz"};
inline constexpr int kMp3DefaultSampleRateItem = 3;

// The preset options; "VeryFast" is chosen when the window loads.
inline constexpr std::array<const char*, 4> kMp3PresetCaptions = {"UltraFast", "VeryFast", "Medium",
                                                                  "Slow"};
inline constexpr int kMp3DefaultPreset = 1;

// The rate of a list item: its first five characters ("16000kHz" gives "16000").
std::string sampleRateOfListItem(std::string_view item);
// "Audio Sample Rate 44100kHz".
std::string sampleRateCaption(const std::string& rate);
// "Preset  VeryFast", two blanks.
std::string presetCaption(std::string_view optionCaption);

// The running time of the source as the tool shows it: "h:mm:ss" ("0:02:05"), or the player's
// longer form from 100 hours on. Empty while it is not known.
std::string toolRunningTimeText(std::optional<double> seconds);

// The text of the "View Commands" box: the command with every "-" turned into a line break (so
// each option starts a line, and a "-" in a path breaks it too), then the question. Empty for a
// command without a "-", which shows no box.
std::optional<std::string> viewedCommandText(const std::string& commandLine);

}  // namespace quillet
