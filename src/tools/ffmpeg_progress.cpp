#include "tools/ffmpeg_progress.h"

#include <algorithm>
#include <cctype>
#include <limits>

#include "tools/progress_display.h"

namespace quillet {

namespace {

// Up to `length` characters from `start`, fewer at the end of the text.
std::string_view cut(std::string_view text, std::size_t start, std::size_t length) {
    if (start >= text.size()) return {};
    return text.substr(start, length);
}

// The 15 characters that start at `key`, from their 6th character on, `length` of them: the
// field behind "speed" ("=1.23x") or behind "size=" ("    2048").
std::optional<std::string> field(std::string_view piece, std::string_view key, std::size_t length) {
    const auto at = findIgnoringCase(piece, key);
    if (!at) return std::nullopt;
    return std::string(cut(cut(piece, *at, 15), 5, length));
}

}  // namespace

ProgressReading readProgressPiece(std::string_view piece, const ProgressSoFar& soFar,
                                  const FormatLocale& locale) {
    // ffmpeg writes its numbers with "." whatever the user's language.
    const FormatLocale ffmpegNumbers;
    ProgressReading reading;
    reading.encodedSeconds = soFar.encodedSeconds;
    reading.speedLevel = soFar.speedLevel;
    const auto videoSeconds = parseNumber(soFar.videoSeconds, locale);

    std::optional<int> pieceSeconds;
    if (soFar.followsTime) {
        if (const auto at = findIgnoringCase(piece, "time")) {
            reading.timeSeen = true;
            // "time=00:01:23.45" gives "00:01:23"; "creation_time   : ..." gives no time at all.
            pieceSeconds = parseClockSeconds(cut(piece, *at + 5, 8));
            reading.encodedSeconds = pieceSeconds.value_or(0);
            reading.barMaximum = videoSeconds;
        }
    }

    std::string speedText;
    if (auto speed = field(piece, "speed", 6)) {
        std::replace(speed->begin(), speed->end(), '=', ' ');
        speedText = *speed;
    }

    if (const auto size = field(piece, "size=", 8)) {
        const auto kilobytes = parseNumber(*size, ffmpegNumbers);
        const auto megabytes =
            kilobytes ? formatNumber(*kilobytes / 1024, kThousandsPattern, locale) : std::nullopt;
        // A field that is no number ("N/A time") is shown as it stands.
        reading.writtenText = "Writen: " + megabytes.value_or(*size) + "Mb";
    }

    const std::string_view level = trimBlanks(cut(trimBlanks(speedText), 0, 2));
    if (const auto speed = parseInt16(level, ffmpegNumbers)) reading.speedLevel = *speed;
    if (reading.speedLevel > std::numeric_limits<std::int16_t>::min()) --reading.speedLevel;

    if (soFar.followsTime && videoSeconds && *videoSeconds != 0) {
        const auto percent =
            formatNumber(pieceSeconds.value_or(0) / (*videoSeconds / 100), kPercentPattern, locale);
        if (percent && *percent != formatNumber(0, kPercentPattern, locale)) {
            reading.caption = "Compression Progress " + *percent + std::string(soFar.captionEnding);
        }
    }
    return reading;
}

void showProgressReading(const ProgressReading& reading, bool followsTime,
                         ProgressDisplay& display) {
    if (reading.timeSeen && reading.barMaximum) display.setProgressMaximum(*reading.barMaximum);
    if (reading.writtenText) display.setWrittenText(*reading.writtenText);
    if (followsTime) display.setProgressValue(reading.encodedSeconds);
    if (reading.caption) {
        display.setProgressCaption(*reading.caption);
        display.highlightProgress();
    }
    display.CompressionSpeedDisplay(reading.speedLevel);
}

}  // namespace quillet
