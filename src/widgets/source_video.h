#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/text_format.h"

namespace quillet {

// What the main window shows of the source video it is given: its name, size and running time.

inline constexpr const char* kSourceDialogTitle = "Compress Video";
// The blank after the MPEG pattern has always been part of the filter.
inline constexpr const char* kSourceDialogFilter =
    "All Files (*.*)|*.*|AVI Files (*.avi)|*.avi|MP4 Files (*.mp4)|*.mp4|MPG Files (*.mpg)|*.mpg|"
    "MPEG Files (*.mpeg)|*.mpeg |MTS Files (*.mts)|*.mts|MOV Files (*.mov)|*.mov|"
    "M4V Files (*.m4v)|*.m4v|M4A Files (*.m4a)|*.m4a|WMV Files (*.wmv)|*.wmv|"
    "WEBM Files (*.webm)|*.webm";

// The chosen path without the blanks around it.
std::string trimmedSourcePath(const std::string& chosen);

// Whether the program refuses the source: its extension (after the last "." of the last part of
// the path, `separator` or "/" ending a part), in lower case, is "mkv". Every other extension is
// accepted, also one the dialog does not list.
bool isRefusedSourceFormat(const std::string& path, char separator);

// The file name shown for the source: what follows its last `separator`; empty when it has none,
// in which case nothing about the file is shown.
std::optional<std::string> sourceFileName(const std::string& path, char separator);

// The "Original Size" box: the length in MB of 1,048,576 bytes, "0,000".
std::string sourceSizeText(std::uintmax_t bytes, const FormatLocale& locale);

// The running time as a player shows it, in whole seconds (to the nearest): "mm:ss" under an hour
// ("02:05"), "h:mm:ss" from an hour on ("2:00:00", "100:00:00"). Empty while it is not known.
std::string runningTimeText(std::optional<double> seconds);

// Whether the running-time box shows a time at last, so that polling for it can stop: neither
// empty nor "00:00".
bool runningTimeKnown(const std::string& runningTimeText);

// The "Video Time in Seconds" box for a running-time text of fewer than 9 characters: the running
// time taken as a time of day, so whole days are lost (25 hours give 3600). A longer text is read
// as a clock itself, which fails from 100 hours on. Empty when there is nothing to show, and the
// box keeps its text.
std::optional<int> videoSecondsShown(const std::string& runningTimeText,
                                     std::optional<double> seconds);

}  // namespace quillet
