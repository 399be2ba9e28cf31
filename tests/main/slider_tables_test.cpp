#include <gtest/gtest.h>

#include "main/slider_tables.h"

namespace quillet {
namespace {

const FormatLocale kEnglish;

TEST(SliderTables, PresetAndAudioTablesWithTheirEnds) {
    EXPECT_EQ(presetName(1), "UltraFast");
    EXPECT_EQ(presetName(3), "VeryFast");
    EXPECT_EQ(presetName(8), "Slower");
    EXPECT_EQ(presetName(0), "");
    EXPECT_EQ(presetName(9), "");
    EXPECT_EQ(audioBitRateText(1), "64");
    EXPECT_EQ(audioBitRateText(6), "160");
    EXPECT_EQ(audioBitRateText(13), "512");
    EXPECT_EQ(audioBitRateText(14), "");
}

TEST(SliderTables, RateLabelsSwitchUnitAtTheirThresholds) {
    using Labeller = SliderLabel (*)(int, const FormatLocale&);
    const struct {
        Labeller label;
        int position;
        const char* value;
        const char* unit;
    } cases[] = {
        {abrLabel, 0, "0", "k"},           {abrLabel, 46, "920", "k"},
        {abrLabel, 50, "1000", "k"},       {abrLabel, 51, "1.02", "M"},
        {abrLabel, 100, "2.00", "M"},      {minBitRateLabel, 0, "000", "k"},
        {minBitRateLabel, 6, "900", "k"},  {minBitRateLabel, 7, "1.1", "M"},
        {minBitRateLabel, 30, "4.6", "M"}, {maxBitRateLabel, 10, "2.0", "M"},
        {maxBitRateLabel, 7, "1.4", "M"},  {bufferSizeLabel, 1, "100", "k"},
        {bufferSizeLabel, 9, "900", "k"},  {bufferSizeLabel, 10, "1.0", "M"},
        {bufferSizeLabel, 11, "1.1", "M"},
    };
    for (const auto& c : cases) {
        const SliderLabel label = c.label(c.position, kEnglish);
        EXPECT_EQ(label.value, c.value) << c.position;
        EXPECT_EQ(label.unit, c.unit) << c.position;
    }
}

TEST(SliderTables, DecimalsFollowTheLocale) {
    FormatLocale german;
    german.decimalSeparator = ",";
    EXPECT_EQ(abrLabel(51, german).value, "1,02");
    EXPECT_EQ(bufferSizeLabel(11, german).value, "1,1");
}

}  // namespace
}  // namespace quillet
