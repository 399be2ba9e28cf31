#include <cmath>

#include "base/text_format.h"

// The clock and calendar texts of text_format.h.

namespace quillet {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string twoDigits(int value) {
    return std::string{static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
}

bool isValidTime(const TimeOfDay& time) {
    return time.hour >= 0 && time.hour <= 23 && time.minute >= 0 && time.minute <= 59 &&
           time.second >= 0 && time.second <= 59;
}

std::string twelveHourClock(int hour) {
    const int h = hour % 12;
    return twoDigits(h == 0 ? 12 : h);
}

}  // namespace

std::optional<int> parseClockSeconds(std::string_view text) {
    // "h:mm:ss" or "hh:mm:ss": the colons sit 3 and 6 characters from the end.
    if (text.size() != 7 && text.size() != 8) return std::nullopt;
    const std::size_t hourDigits = text.size() - 6;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool colon = i == hourDigits || i == hourDigits + 3;
        if (colon ? text[i] != ':' : !isDigit(text[i])) return std::nullopt;
    }
    const auto number = [&](std::size_t from, std::size_t count) {
        int n = 0;
        for (std::size_t i = from; i < from + count; ++i) n = n * 10 + (text[i] - '0');
        return n;
    };
    const int hours = number(0, hourDigits);
    const int minutes = number(hourDigits + 1, 2);
    const int seconds = number(hourDigits + 4, 2);
    if (hours > 23 || minutes > 59 || seconds > 59) return std::nullopt;
    return hours * 3600 + minutes * 60 + seconds;
}

std::optional<std::string> formatClockHms(double seconds) {
    if (!std::isfinite(seconds) || seconds < 0) return std::nullopt;
    // A running time becomes a time of day here, so a day or more wraps around.
    const auto ofDay = static_cast<int>(std::fmod(std::floor(seconds), 86400.0));
    return std::to_string(ofDay / 3600) + ":" + twoDigits(ofDay / 60 % 60) + ":" +
           twoDigits(ofDay % 60);
}

std::string formatTime12Hour(const TimeOfDay& time) {
    if (!isValidTime(time)) return {};
    return twelveHourClock(time.hour) + ":" + twoDigits(time.minute) +
           (time.hour < 12 ? " AM" : " PM");
}

std::string formatTime12HourSeconds(const TimeOfDay& time, const FormatLocale& locale) {
    if (!isValidTime(time)) return {};
    return twelveHourClock(time.hour) + ":" + twoDigits(time.minute) + ":" +
           twoDigits(time.second) + " " + (time.hour < 12 ? locale.amMarker : locale.pmMarker);
}

std::string formatLongDate(const CalendarDate& date, const FormatLocale& locale) {
    if (date.year < 0 || date.year > 9999 || date.month < 1 || date.month > 12 || date.day < 1 ||
        date.day > 31 || date.weekday < 0 || date.weekday > 6) {
        return {};
    }
    std::string year = std::to_string(date.year);
    year.insert(0, 4 - year.size(), '0');
    return locale.dayNames[date.weekday] + ", " + locale.monthAbbreviations[date.month - 1] + " " +
           std::to_string(date.day) + " " + year;
}

}  // namespace quillet
