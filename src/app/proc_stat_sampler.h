#pragma once

// Processor load on Linux from the kernel's /proc/stat: every "cpu" row (the total row and one per
// processor) gives its busy share between two readings, and the shares are averaged alike, as the
// Windows reading averages its total and per-processor instances alike.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/cpu_sampler.h"

namespace quillet {

// The time counters of one "cpu" row, in clock ticks since boot.
struct ProcessorTimes {
    std::string name;  // "cpu" for the total row, "cpu0", "cpu1"... for the processors
    std::uint64_t busy = 0;
    std::uint64_t total = 0;
};

// The "cpu" rows of a /proc/stat text, in order. Waiting for input/output counts as idle, and the
// guest columns are left out because the kernel already counts them in user and nice time. A row
// with fewer than the four oldest columns or with a field that is not a count is skipped.
std::vector<ProcessorTimes> parseProcStat(std::string_view text);

// The busy percentage of each row of `current` since the row of the same name in `previous` (since
// boot when `previous` has no such row), averaged over the rows. A row whose counters did not move
// forward has no share and is left out; nothing when no row is left.
std::optional<double> averageBusyPercent(const std::vector<ProcessorTimes>& previous,
                                         const std::vector<ProcessorTimes>& current);

// Reads the file at every call and compares with the previous call. The first reading compares
// with boot: it is taken while the main window loads, where a figure is wanted at once and a
// second sample a moment later would hold the window up; the timer's readings then follow the
// current load.
class ProcStatSampler : public CpuSampler {
public:
    explicit ProcStatSampler(std::string path = "/proc/stat");

    // Nothing when the file cannot be read; the previous sample is then kept for the next call.
    std::optional<double> read() override;

private:
    std::string path_;
    std::vector<ProcessorTimes> previous_;
};

}  // namespace quillet
