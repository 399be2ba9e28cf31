#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace quillet {

// The ten speed cells of the main window: " 1x" (0) ... "8x" (7), "> 8x" (8), "< 1x" (9). Each is
// shown normal or highlighted; cells a step does not mention keep their look.
inline constexpr int kSpeedCellCount = 10;
using SpeedCellLooks = std::array<std::optional<bool>, kSpeedCellCount>;  // true = highlighted

// CompressionSpeedDisplay: highlights cells 0 up to and including `speed` (cells past the last
// do not exist); a negative speed highlights none.
SpeedCellLooks speedDisplay(int speed);

// One tick of the speed-cell timer. Nothing happens (empty result) when `speedLevel` equals the
// value last shown; otherwise it becomes the value last shown, cells 1 to 8 return to normal (cell
// 0 is never cleared here: once lit it stays lit for the job), speedDisplay(speedLevel) is laid
// over that, and cell 9 ("< 1x") is normal from 1 on and highlighted below.
// The value last shown starts at 0, as the speed level does, so nothing is lit before a job.
std::optional<SpeedCellLooks> speedTimerTick(std::int16_t speedLevel, std::int16_t& lastShown);

}  // namespace quillet
