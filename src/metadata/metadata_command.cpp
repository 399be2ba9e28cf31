#include "metadata/metadata_command.h"

#include "jobs/command_lines.h"
#include "tools/command_words.h"

namespace quillet {

namespace {

// The tags are written in groups of three.
constexpr std::size_t kGroup = 3;

}  // namespace

std::string metadataArguments(const MetadataFields& fields) {
    std::string arguments;
    // The last group reaches past the last field, so none of it is written.
    const std::size_t written = (kMetadataKeyCount / kGroup) * kGroup;
    for (std::size_t index = 0; index < written; ++index) {
        arguments += " -metadata " + std::string(kMetadataKeys[index]) + "=\"" +
                     std::string(trimBlanks(fields[index])) + "\"";
    }
    return arguments;
}

std::string metadataCommandLine(const std::string& programFolder, const std::string& source,
                                const std::string& arguments, const std::string& output,
                                const PlatformNames& names) {
    return ffmpegProgram(programFolder, names, false) + sourceInput(source) +
           "-c:v libx265 -c copy" + arguments + " -y " + quoteArgument(output);
}

std::string todaysTimeAndDate(const TimeOfDay& time, const CalendarDate& date,
                              const FormatLocale& locale) {
    return formatTime12HourSeconds(time, locale) + " " + formatLongDate(date, locale);
}

}  // namespace quillet
