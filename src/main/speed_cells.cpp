#include "main/speed_cells.h"

#include <algorithm>

namespace quillet {

namespace {
constexpr int kSlowCell = kSpeedCellCount - 1;  // "< 1x"
}  // namespace

SpeedCellLooks speedDisplay(int speed) {
    SpeedCellLooks looks;
    for (int cell = 0; cell <= std::min(speed, kSlowCell); ++cell) {
        looks[static_cast<std::size_t>(cell)] = true;
    }
    return looks;
}

std::optional<SpeedCellLooks> speedTimerTick(std::int16_t speedLevel, std::int16_t& lastShown) {
    if (speedLevel == lastShown) return std::nullopt;
    lastShown = speedLevel;
    SpeedCellLooks looks = speedDisplay(speedLevel);
    for (int cell = 1; cell < kSlowCell; ++cell) {
        auto& look = looks[static_cast<std::size_t>(cell)];
        if (!look) look = false;
    }
    looks[kSlowCell] = speedLevel < 1;
    return looks;
}

}  // namespace quillet
