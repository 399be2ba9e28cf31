#include "widgets/source_video.h"

#include <algorithm>
#include <cmath>

namespace quillet {

namespace {

std::string twoDigits(long long value) {
    return (value < 10 ? "0" : "") + std::to_string(value);
}

}  // namespace

std::string trimmedSourcePath(const std::string& chosen) {
    return std::string(trimBlanks(chosen));
}

bool isRefusedSourceFormat(const std::string& path, char separator) {
    const auto partStart = path.find_last_of(std::string{separator, '/'});
    const std::string part = partStart == std::string::npos ? path : path.substr(partStart + 1);
    const auto dot = part.rfind('.');
    if (dot == std::string::npos) return false;
    return lowerCaseAscii(part.substr(dot + 1)) == "mkv";
}

std::optional<std::string> sourceFileName(const std::string& path, char separator) {
    const auto last = path.rfind(separator);
    if (last == std::string::npos) return std::nullopt;
    return path.substr(last + 1);
}

std::string sourceSizeText(std::uintmax_t bytes, const FormatLocale& locale) {
    return formatNumber(static_cast<double>(bytes) / 1024 / 1024, kThousandsPattern, locale)
        .value_or("");
}

std::string runningTimeText(std::optional<double> seconds) {
    if (!seconds || !std::isfinite(*seconds) || *seconds < 0) return {};
    const long long whole = std::llround(*seconds);
    const std::string minutesAndSeconds = twoDigits(whole / 60 % 60) + ":" + twoDigits(whole % 60);
    if (whole < 3600) return minutesAndSeconds;
    return std::to_string(whole / 3600) + ":" + minutesAndSeconds;
}

bool runningTimeKnown(const std::string& runningTimeText) {
    return !runningTimeText.empty() && runningTimeText != "00:00";
}

std::optional<int> videoSecondsShown(const std::string& runningTimeText,
                                     std::optional<double> seconds) {
    if (runningTimeText.size() >= 9) return parseClockSeconds(runningTimeText);
    if (!seconds) return std::nullopt;
    const auto timeOfDay = formatClockHms(std::round(*seconds));
    if (!timeOfDay) return std::nullopt;
    return parseClockSeconds(*timeOfDay);
}

}  // namespace quillet
