#pragma once

#include <array>
#include <string>

#include "app/settings_store.h"
#include "base/platform_names.h"
#include "base/text_format.h"

namespace quillet {

// The metadata editor's fields, in order: their captions beside the boxes. Their tag names are
// kMetadataKeys.
inline constexpr std::array<const char*, kMetadataKeyCount> kMetadataCaptions = {
    "Title",         "Artist",     "Album Artist", "Composer",         "Album",      "Date",
    "Encoding Tool", "Comment",    "Genre",        "Copyright",        "Grouping",   "Lyrics",
    "Description",   "Synopsis",   "Show",         "Episode ID",       "Network",    "Episode Sort",
    "Season Number", "Media Type", "HD Video",     "Gapless Playback", "Compilation"};
inline constexpr std::size_t kDateField = 5;
inline constexpr std::size_t kEncodingToolField = 6;
inline constexpr std::size_t kCommentField = 7;

using MetadataFields = std::array<std::string, kMetadataKeyCount>;

// The tags of the ffmpeg command: ` -metadata key="value"` for each field in order, the value
// trimmed of blanks, an empty field giving an empty pair of quotes. Double quotes inside a value
// are passed as they are. The fields go three at a time, and the last three (gapless playback and
// compilation, with a field that was never there) are never written: the tags run from the title
// to the HD video flag.
std::string metadataArguments(const MetadataFields& fields);

// ... -i "SOURCE" -c:v libx265 -c copy TAGS -y "OUT": the streams are copied as they are. ffmpeg
// is called without the system's program ending and is not quoted.
std::string metadataCommandLine(const std::string& programFolder, const std::string& source,
                                const std::string& arguments, const std::string& output,
                                const PlatformNames& names);

// "03:07:09 PM Saturday, Nov 14 2026": the time, a blank and the date, in the user's language.
std::string todaysTimeAndDate(const TimeOfDay& time, const CalendarDate& date,
                              const FormatLocale& locale);

}  // namespace quillet
