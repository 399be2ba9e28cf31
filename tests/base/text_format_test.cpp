#include "base/text_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace quillet {
namespace {

const FormatLocale kEnglish;

FormatLocale german() {
    FormatLocale locale;
    locale.decimalSeparator = ",";
    locale.groupSeparator = ".";
    return locale;
}

struct PatternCase {
    double value;
    NumberPattern pattern;
    const char* expected;
};

TEST(FormatNumber, PatternsRoundHalfAwayFromZeroOnTheDecimalForm) {
    const PatternCase cases[] = {
        {7, kThousandsPattern, "0,007"},
        {1234.6, kThousandsPattern, "1,235"},
        {1572864.0 / 1024, kThousandsPattern, "1,536"},
        {1234567, kThousandsPattern, "1,234,567"},
        {-1234.5, kThousandsPattern, "-1,235"},
        {-0.4, kThousandsPattern, "0,000"},  // no "-" on a value shown as zero
        {1.005, kTwoDecimalsPattern, "1.01"},
        {0.999, kTwoDecimalsPattern, "1.00"},
        {7 / 6.5, kOneDecimalPattern, "1.1"},
        {0, kThreeDigitsPattern, "000"},
        {2.5, kThreeDigitsPattern, "003"},
        {5.5, kPercentPattern, "05.50"},
        {42.1666, kPercentPattern, "42.17"},
        {103.2, kPercentPattern, "103.20"}};
    for (const auto& c : cases) {
        EXPECT_EQ(formatNumber(c.value, c.pattern, kEnglish), c.expected) << c.value;
    }
}

TEST(FormatNumber, UsesTheLocaleSeparators) {
    const FormatLocale de = german();
    EXPECT_EQ(formatNumber(1234567, kThousandsPattern, de), "1.234.567");
    EXPECT_EQ(formatNumber(1.1, kTwoDecimalsPattern, de), "1,10");

    FormatLocale narrowSpace;
    narrowSpace.groupSeparator = "\u202F";  // several bytes in UTF-8
    EXPECT_EQ(formatNumber(1536, kThousandsPattern, narrowSpace), "1\u202F536");
}

TEST(FormatNumber, ExtremeValuesNeitherFailNorHang) {
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(formatNumber(std::nan(""), kThousandsPattern, kEnglish));
    EXPECT_FALSE(formatNumber(inf, kPercentPattern, kEnglish));
    EXPECT_FALSE(formatNumber(-inf, kPercentPattern, kEnglish));

    const auto huge = formatNumber(1e300, kThousandsPattern, kEnglish);
    ASSERT_TRUE(huge);
    EXPECT_EQ(huge->size(), 301u + 100u);  // 301 digits and a separator before each 3 but the first
    EXPECT_EQ(huge->substr(0, 6), "1,000,");
    EXPECT_EQ(formatNumber(1e-300, kTwoDecimalsPattern, kEnglish), "0.00");
}

TEST(NumberText, ShortestTextWithFifteenSignificantDigits) {
    const struct {
        double value;
        const char* expected;
    } cases[] = {{100.0 * 8192 / 600 - 128, "1237.33333333333"},
                 {1500, "1500"},
                 {-3.5, "-3.5"},
                 {-0.0, "0"},
                 {0.1 + 0.2, "0.3"},
                 {123456789012345, "123456789012345"},
                 {1e15, "1E+15"},
                 {-2.5e-7, "-2.5E-07"}};
    for (const auto& c : cases) EXPECT_EQ(numberText(c.value, kEnglish), c.expected) << c.value;

    EXPECT_EQ(numberText(1237.333, german()), "1237,333");
    EXPECT_FALSE(numberText(std::nan(""), kEnglish));
}

TEST(RoundHalfEven, RoundsTiesToEvenOnTheDecimalForm) {
    const struct {
        double value;
        int decimals;
        double expected;
    } cases[] = {
        {1237.33333, 3, 1237.333},
        {100.0 * 8192 / 600 - 128, 3, 1237.333},
        {2.5, 0, 2},
        {-2.5, 0, -2},
        {2000.0 / 4, 0, 500},
        {1.005, 2, 1.0},    // an exact tie in 15 digits, although the binary value is below it
        {1.0051, 2, 1.01},  // not a tie
        {25, -1, 25}};
    for (const auto& c : cases) {
        EXPECT_EQ(roundHalfEven(c.value, c.decimals), c.expected) << c.value << " " << c.decimals;
    }
    EXPECT_TRUE(std::isnan(roundHalfEven(std::nan(""), 2)));
}

TEST(ParseNumber, AcceptsBoxTextAndRefusesAnythingElse) {
    const struct {
        const char* text;
        std::optional<double> expected;
    } cases[] = {{"1237.333", 1237.333},  {"  -3.5\t", -3.5},    {"1.", 1},
                 {"    2048", 2048},      {"1,536", 1536},       {"1,234,567.25", 1234567.25},
                 {"", std::nullopt},      {".", std::nullopt},   {"N/A time", std::nullopt},
                 {"1x", std::nullopt},    {"1e5", std::nullopt}, {"1,", std::nullopt},
                 {"1.5,0", std::nullopt},  // no group separator inside the decimals
                 {"1e999", std::nullopt}};
    for (const auto& c : cases) EXPECT_EQ(parseNumber(c.text, kEnglish), c.expected) << c.text;

    EXPECT_EQ(parseNumber("1.536,5", german()), 1536.5);
    EXPECT_EQ(parseNumber("1" + std::string(400, '0'), kEnglish), std::nullopt);
}

TEST(ParseInt16, ConvertsLikeAWholeNumberConversion) {
    const struct {
        const char* text;
        std::optional<std::int16_t> expected;
    } cases[] = {{"1.", 1},
                 {"2.5", 2},
                 {" 7 ", 7},
                 {"32767", 32767},
                 {"32768", std::nullopt},
                 {"", std::nullopt},
                 {"N/", std::nullopt},
                 {"1x", std::nullopt},
                 {".", std::nullopt}};
    for (const auto& c : cases) EXPECT_EQ(parseInt16(c.text, kEnglish), c.expected) << c.text;
}

TEST(ParseClockSeconds, ReadsOnlyAWholeValidClock) {
    const struct {
        const char* text;
        std::optional<int> expected;
    } cases[] = {{"00:01:23", 83},
                 {"2:00:00", 7200},
                 {"23:59:59", 86399},
                 {"N/A", std::nullopt},
                 {"", std::nullopt},
                 {"-0:00:01", std::nullopt},
                 {"-577014:", std::nullopt},
                 {"00:01:2", std::nullopt},
                 {"24:00:00", std::nullopt},
                 {"00:60:00", std::nullopt},
                 {"00:01:23.45", std::nullopt},
                 {"000:01:23", std::nullopt}};
    for (const auto& c : cases) EXPECT_EQ(parseClockSeconds(c.text), c.expected) << c.text;
}

TEST(FormatClockHms, DropsFractionsAndWholeDays) {
    EXPECT_EQ(formatClockHms(7200), "2:00:00");
    EXPECT_EQ(formatClockHms(90061), "1:01:01");
    EXPECT_EQ(formatClockHms(83.9), "0:01:23");
    EXPECT_FALSE(formatClockHms(-1));
    EXPECT_FALSE(formatClockHms(std::nan("")));
    EXPECT_TRUE(formatClockHms(1e300));
}

TEST(FormatTime, TwelveHourClocks) {
    const struct {
        TimeOfDay time;
        const char* shortText;
        const char* longText;
    } cases[] = {{{9, 5, 0}, "09:05 AM", "09:05:00 AM"},
                 {{13, 30, 7}, "01:30 PM", "01:30:07 PM"},
                 {{0, 10, 0}, "12:10 AM", "12:10:00 AM"},
                 {{12, 0, 0}, "12:00 PM", "12:00:00 PM"},
                 {{24, 0, 0}, "", ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(formatTime12Hour(c.time), c.shortText);
        EXPECT_EQ(formatTime12HourSeconds(c.time, kEnglish), c.longText);
    }

    FormatLocale lower;
    lower.amMarker = "vorm.";
    lower.pmMarker = "nachm.";
    EXPECT_EQ(formatTime12HourSeconds({15, 7, 9}, lower), "03:07:09 nachm.");
    EXPECT_EQ(formatTime12Hour({15, 7, 9}), "03:07 PM");  // this pattern ignores the locale
}

TEST(FormatLongDate, UsesTheLocaleNames) {
    EXPECT_EQ(formatLongDate({2026, 3, 2, 1}, kEnglish), "Monday, Mar 2 2026");
    EXPECT_EQ(formatLongDate({987, 12, 31, 0}, kEnglish), "Sunday, Dec 31 0987");

    FormatLocale de = german();
    de.dayNames[1] = "Montag";
    de.monthAbbreviations[2] = "Mär";
    EXPECT_EQ(formatLongDate({2026, 3, 2, 1}, de), "Montag, Mär 2 2026");

    EXPECT_EQ(formatLongDate({2026, 13, 1, 0}, kEnglish), "");
}

}  // namespace
}  // namespace quillet
