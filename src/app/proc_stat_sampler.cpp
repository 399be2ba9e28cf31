#include "app/proc_stat_sampler.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <utility>

#include "tools/exact_number.h"

namespace quillet {

namespace {

// Columns of a "cpu" row, in the kernel's order; the later ones came with later kernels.
enum Column { User, Nice, System, Idle, IoWait, Irq, SoftIrq, Steal, Guest, GuestNice, Columns };
constexpr std::size_t kOldestColumns = Idle + 1;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// "cpu" alone or followed by the processor number.
bool isCpuRowName(std::string_view word) {
    if (!word.starts_with("cpu")) return false;
    word.remove_prefix(3);
    return std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string_view nextWord(std::string_view& line) {
    while (!line.empty() && isBlank(line.front())) line.remove_prefix(1);
    std::size_t end = 0;
    while (end < line.size() && !isBlank(line[end])) ++end;
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(end);
    return word;
}

std::optional<ProcessorTimes> parseRow(std::string_view line) {
    const std::string_view name = nextWord(line);
    if (!isCpuRowName(name)) return std::nullopt;
    std::array<std::uint64_t, Columns> counts{};
    std::size_t found = 0;
    for (std::string_view word = nextWord(line); !word.empty(); word = nextWord(line)) {
        const auto count = exactNumber<std::uint64_t>(word);
        if (!count) return std::nullopt;
        if (found < counts.size()) counts[found] = *count;
        ++found;
    }
    if (found < kOldestColumns) return std::nullopt;
    const std::uint64_t idle = counts[Idle] + counts[IoWait];
    const std::uint64_t busy = counts[User] + counts[Nice] + counts[System] + counts[Irq] +
                               counts[SoftIrq] + counts[Steal];
    return ProcessorTimes{std::string(name), busy, busy + idle};
}

const ProcessorTimes* findRow(const std::vector<ProcessorTimes>& rows, std::size_t hint,
                              const std::string& name) {
    // Rows normally stand where they stood last time; a processor taken off line shifts them.
    if (hint < rows.size() && rows[hint].name == name) return &rows[hint];
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const ProcessorTimes& row) { return row.name == name; });
    return found == rows.end() ? nullptr : &*found;
}

}  // namespace

std::vector<ProcessorTimes> parseProcStat(std::string_view text) {
    std::vector<ProcessorTimes> rows;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (auto row = parseRow(line)) rows.push_back(std::move(*row));
    }
    return rows;
}

std::optional<double> averageBusyPercent(const std::vector<ProcessorTimes>& previous,
                                         const std::vector<ProcessorTimes>& current) {
    double sum = 0;
    int rows = 0;
    for (std::size_t i = 0; i < current.size(); ++i) {
        const ProcessorTimes& now = current[i];
        const ProcessorTimes* before = findRow(previous, i, now.name);
        const std::uint64_t busyBefore = before ? before->busy : 0;
        const std::uint64_t totalBefore = before ? before->total : 0;
        if (now.total <= totalBefore) continue;
        const double total = static_cast<double>(now.total - totalBefore);
        // Idle-while-waiting counters may step back on some kernels, which can make the busy
        // part look larger than the elapsed time or smaller than nothing.
        const double busy =
            now.busy > busyBefore ? static_cast<double>(now.busy - busyBefore) : 0.0;
        sum += 100.0 * std::min(busy, total) / total;
        ++rows;
    }
    if (rows == 0) return std::nullopt;
    return sum / rows;
}

ProcStatSampler::ProcStatSampler(std::string path) : path_(std::move(path)) {}

std::optional<double> ProcStatSampler::read() {
    std::ifstream file(path_);
    if (!file) return std::nullopt;
    // The "cpu" rows open the file; the long interrupt rows after them are not needed.
    std::string text;
    for (std::string line; std::getline(file, line) && line.starts_with("cpu");) {
        text += line;
        text += '\n';
    }
    std::vector<ProcessorTimes> rows = parseProcStat(text);
    if (rows.empty()) return std::nullopt;
    const std::optional<double> percent = averageBusyPercent(previous_, rows);
    previous_ = std::move(rows);
    return percent;
}

#ifndef _WIN32
std::unique_ptr<CpuSampler> makeSystemCpuSampler() {
    return std::make_unique<ProcStatSampler>();
}
#endif

}  // namespace quillet
