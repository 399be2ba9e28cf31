#pragma once

// The values kept between runs, in the user's settings store: on Windows the registry
// (HKEY_CURRENT_USER\Software\Quillet2.0, a subkey per section, a string value per key), elsewhere
// an INI file (Quillet2.0/Quillet2.0.ini in the user's configuration folder, a group per section).
// When the environment variable QUILLET_SETTINGS_DIR names a folder, the store is the INI file
// Quillet2.0.ini in that folder on every system, so that tests never touch the user's own values.
// Nothing else in the program touches the store. Reads never fail and nothing is ever deleted; a
// store that cannot be written is not reported.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

inline constexpr std::string_view kSettingsApplication = "Quillet2.0";

// The processor monitor's switch: "1" on, "0" off; on when nothing is stored.
inline constexpr std::string_view kCpuSection = "CPUenabled";
inline constexpr std::string_view kCpuKey = "EnableDisable";
inline constexpr std::string_view kCpuDefault = "1";

// The metadata editor's default entries, one key per field in the order of the editor's fields;
// the keys are also the ffmpeg tag names. A field never saved reads as one space.
inline constexpr std::string_view kMetadataSection = "METAdata";
inline constexpr std::size_t kMetadataKeyCount = 23;
inline constexpr std::array<std::string_view, kMetadataKeyCount> kMetadataKeys = {
    "title",         "artist",     "album_artist", "composer",         "album",      "date",
    "encoding_tool", "comment",    "genre",        "copyright",        "grouping",   "lyrics",
    "description",   "synopsis",   "show",         "episode_id",       "network",    "episode_sort",
    "season_number", "media_type", "hd_video",     "gapless_playback", "compilation"};
inline constexpr std::string_view kMetadataDefault = " ";

// The value stored under `section` and `key`, or `defaultValue` when there is none.
std::string readSetting(std::string_view section, std::string_view key,
                        std::string_view defaultValue);
// Stores `value`, creating the section and key as needed.
void saveSetting(std::string_view section, std::string_view key, std::string_view value);

// The stored processor-monitor switch as the main window's load applies it: on, off, or no change
// for a stored text that is neither 1 nor 0 as a number.
std::optional<bool> readCpuMonitorSwitch();
// Stores the switch as the main window's closing leaves it.
void saveCpuMonitorSwitch(bool enabled);

// The metadata default entries in the order of kMetadataKeys, read and written one after another.
std::array<std::string, kMetadataKeyCount> readMetadataDefaults();
void saveMetadataDefaults(const std::array<std::string, kMetadataKeyCount>& entries);

}  // namespace quillet
