#include <gtest/gtest.h>

#include "main/speed_cells.h"

namespace quillet {
namespace {

// The looks as a text, one character a cell: H highlighted, n normal, . left as it was.
std::string looks(const SpeedCellLooks& cells) {
    std::string text;
    for (const auto& look : cells) text += look ? (*look ? 'H' : 'n') : '.';
    return text;
}

TEST(SpeedCells, TimerTickLightsUpToTheLevelAndTheSlowCellBelowOne) {
    const struct {
        std::int16_t level;
        const char* expected;
    } cases[] = {
        {0, "HnnnnnnnnH"},                       // " 1x" and "< 1x"
        {8, "HHHHHHHHHn"},                       // up to "> 8x"
        {11, "HHHHHHHHHn"},                      // beyond the last cell
        {1, "HHnnnnnnnn"},  {-1, ".nnnnnnnnH"},  // cell 0 is never cleared by the timer
    };
    for (const auto& c : cases) {
        std::int16_t lastShown = 99;
        const auto update = speedTimerTick(c.level, lastShown);
        ASSERT_TRUE(update) << c.level;
        EXPECT_EQ(looks(*update), c.expected) << c.level;
        EXPECT_EQ(lastShown, c.level);
    }
}

TEST(SpeedCells, SameLevelTwiceRedrawsNothing) {
    std::int16_t lastShown = 0;
    EXPECT_FALSE(speedTimerTick(0, lastShown));  // nothing lit before a job
    EXPECT_TRUE(speedTimerTick(3, lastShown));
    EXPECT_FALSE(speedTimerTick(3, lastShown));
    EXPECT_EQ(looks(speedDisplay(-1)), "..........");
    EXPECT_EQ(looks(speedDisplay(2)), "HHH.......");
}

}  // namespace
}  // namespace quillet
