#pragma once

// Number, clock and date texts exactly as the windows show them, and the lenient reading of such
// texts back into numbers. Nothing here reads the system clock or the system locale: the caller
// passes both in, so every result is reproducible. No function throws; failures are empty
// optionals.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

// The user's language settings that the texts depend on. Defaults are English.
struct FormatLocale {
    std::string decimalSeparator = ".";
    std::string groupSeparator = ",";
    std::string amMarker = "AM";
    std::string pmMarker = "PM";
    std::array<std::string, 7> dayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                           "Thursday", "Friday", "Saturday"};
    std::array<std::string, 12> monthAbbreviations = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
};

// `text` without the blanks at either end (only spaces count, as the windows' texts are trimmed).
std::string_view trimBlanks(std::string_view text);
// `text` without any of `characters` at either end.
std::string_view trimAny(std::string_view text, std::string_view characters);

// Where `key` first stands in `text`, the letters A-Z matched in either case.
std::optional<std::size_t> findIgnoringCase(std::string_view text, std::string_view key);

// `text` with the letters A-Z in lower case; every other byte, UTF-8 included, stays as it is.
std::string lowerCaseAscii(std::string text);

// A fixed-point number pattern: at least minIntegerDigits integer digits (zero-padded), exactly
// `decimals` decimals, and optionally the group separator every three integer digits.
struct NumberPattern {
    int minIntegerDigits = 1;
    int decimals = 0;
    bool grouped = false;
};

inline constexpr NumberPattern kThousandsPattern{4, 0, true};     // "0,000": 7 -> "0,007"
inline constexpr NumberPattern kTwoDecimalsPattern{1, 2, false};  // "0.00"
inline constexpr NumberPattern kOneDecimalPattern{1, 1, false};   // "0.0"
inline constexpr NumberPattern kThreeDigitsPattern{3, 0, false};  // "000"
inline constexpr NumberPattern kPercentPattern{2, 2, false};      // "00.00": 5.5 -> "05.50"

// `value` in `pattern`, rounded half away from zero on its 15-significant-digit decimal form
// (1.005 with two decimals gives "1.01"). Negative values get a leading "-", unless they round to
// zero. Empty for NaN and infinities.
std::optional<std::string> formatNumber(double value, NumberPattern pattern,
                                        const FormatLocale& locale);

// The shortest text of `value`: up to 15 significant digits, no trailing zeros, no group
// separator, the locale's decimal separator; "1E+15" style only below 1E-05 and from 1E+15 on.
// Empty for NaN and infinities.
std::optional<std::string> numberText(double value, const FormatLocale& locale);

// `value` rounded to `decimals` decimals (negative counts as 0), halves to the even neighbour on
// its 15-significant-digit decimal form: 2.5 -> 2, 3.5 -> 4. NaN and infinities are returned as
// they are.
double roundHalfEven(double value, int decimals);

// `value` rounded to a whole number with halves to even; empty when it does not fit or is not
// finite.
std::optional<std::int16_t> toInt16(double value);
std::optional<std::int32_t> toInt32(double value);

// Reads a number typed or shown in a box: optional surrounding blanks, an optional sign, digits
// with at most one locale decimal separator, and group separators between integer digits
// ("1,536"). At least one digit is needed; anything else fails.
std::optional<double> parseNumber(std::string_view text, const FormatLocale& locale);

// parseNumber, then rounded to a 16-bit whole number with halves to even ("2.5" -> 2, "1." -> 1);
// empty when the text is not a number or the result is outside -32768..32767.
std::optional<std::int16_t> parseInt16(std::string_view text, const FormatLocale& locale);

// Seconds since midnight of a clock text "h:mm:ss" or "hh:mm:ss" (hours 0-23, minutes and seconds
// two digits each, 00-59, nothing else): "00:01:23" -> 83. Empty for any other text.
std::optional<int> parseClockSeconds(std::string_view text);

// A running time as "h:mm:ss": fractions of a second are dropped and so are whole days
// (90061 -> "1:01:01"). Empty for negative or non-finite seconds.
std::optional<std::string> formatClockHms(double seconds);

struct TimeOfDay {
    int hour = 0;  // 0-23
    int minute = 0;
    int second = 0;
};

struct CalendarDate {
    int year = 2000;
    int month = 1;    // 1-12
    int day = 1;      // 1-31
    int weekday = 0;  // 0 = Sunday ... 6 = Saturday
};

// "hh:mm AM/PM": 12-hour clock with the literal markers "AM"/"PM" ("01:30 PM", "12:10 AM").
// Empty when a field is out of range.
std::string formatTime12Hour(const TimeOfDay& time);

// "hh:mm:ss AMPM": 12-hour clock with the locale's markers ("09:15:02 AM"). Empty when a field is
// out of range.
std::string formatTime12HourSeconds(const TimeOfDay& time, const FormatLocale& locale);

// "dddd, mmm d yyyy": "Monday, Mar 2 2026" with the locale's names. Empty when a field is out of
// range.
std::string formatLongDate(const CalendarDate& date, const FormatLocale& locale);

}  // namespace quillet
