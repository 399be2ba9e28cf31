#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <regex>

#include <unistd.h>

#include "app/cpu_monitor.h"
#include "app/proc_stat_sampler.h"
#include "under_wine.h"

namespace quillet {
namespace {

// A /proc/stat text: the total row, then one row per processor, each with `busy` ticks of user
// time and `idle` ticks of idle time.
std::string statText(std::initializer_list<std::pair<int, int>> rows) {
    std::string text;
    std::string name = "cpu";
    int processor = 0;
    for (const auto& [busy, idle] : rows) {
        text += name + " " + std::to_string(busy) + " 0 0 " + std::to_string(idle) + " 0 0 0 0\n";
        name = "cpu" + std::to_string(processor++);
    }
    return text + "intr 114 0 0\nctxt 2121854\n";
}

TEST(ProcStat, ReadsEveryCpuRowWithWaitingAsIdleAndGuestTimeCountedOnce) {
    const std::vector<ProcessorTimes> rows = parseProcStat(
        "cpu  10 20 30 400 50 6 7 8 90 100\n"
        "cpu12 1 2 3 4\n"  // an old kernel's four columns
        "cpu1 1 2 3\n"     // too few columns
        "cpu2 1 2 x 4\n"   // not a count
        "cpux 1 2 3 4\n"   // not a processor row
        "intr 1 2 3 4 5 6\n");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].name, "cpu");
    EXPECT_EQ(rows[0].busy, 10u + 20 + 30 + 6 + 7 + 8);
    EXPECT_EQ(rows[0].total, rows[0].busy + 400 + 50);
    EXPECT_EQ(rows[1].name, "cpu12");
    EXPECT_EQ(rows[1].total, 10u);
}

TEST(ProcStat, AveragesEveryRowAlike) {
    const std::string zeros = statText({{0, 0}, {0, 0}, {0, 0}});
    const std::vector<std::tuple<const char*, std::string, std::string, std::optional<double>>>
        cases = {
            {"four processors at 50%, total too", "",
             statText({{400, 400}, {100, 100}, {100, 100}, {100, 100}, {100, 100}}), 50.0},
            // The total row is 25% busy and weighs as much as each processor row.
            {"rows of unequal length", zeros, statText({{100, 300}, {100, 0}, {0, 300}}),
             125.0 / 3},
            {"a processor gone off line", zeros, "cpu 20 0 0 20\ncpu1 10 0 0 30\n", 37.5},
            {"no time passed", zeros, zeros, std::nullopt},
            {"busy time stepping back", statText({{50, 0}}), statText({{40, 20}}), 0.0},
        };
    for (const auto& [what, before, after, expected] : cases) {
        const std::optional<double> percent =
            averageBusyPercent(parseProcStat(before), parseProcStat(after));
        ASSERT_EQ(percent.has_value(), expected.has_value()) << what;
        if (percent) {
            EXPECT_NEAR(*percent, *expected, 1e-9) << what;
        }
    }
}

TEST(ProcStat, SamplerComparesWithThePreviousReadingThatSucceeded) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("quillet_stat_" + std::to_string(::getpid()));
    const auto write = [&](const std::string& text) { std::ofstream(path) << text; };
    ProcStatSampler sampler(path.string());
    write(statText({{100, 300}, {100, 300}}));
    EXPECT_EQ(sampler.read(), 25.0);  // since boot
    write(statText({{200, 300}, {200, 300}}));
    EXPECT_EQ(sampler.read(), 100.0);
    std::filesystem::remove(path);
    EXPECT_EQ(sampler.read(), std::nullopt);
    write(statText({{200, 400}, {200, 400}}));
    EXPECT_EQ(sampler.read(), 0.0);
    std::filesystem::remove(path);
}

TEST(CpuMonitor, LabelText) {
    FormatLocale comma;
    comma.decimalSeparator = ",";
    EXPECT_EQ(cpuLabelText(5.5, {}), "CPU: 05.50%");
    EXPECT_EQ(cpuLabelText(50, {}), "CPU: 50.00%");
    EXPECT_EQ(cpuLabelText(99.999, {}), "CPU: 100.00%");
    EXPECT_EQ(cpuLabelText(5.5, comma), "CPU: 05,50%");
    EXPECT_EQ(cpuLabelText(std::numeric_limits<double>::quiet_NaN(), {}), std::nullopt);
}

TEST(CpuMonitor, SystemSamplerReadsTheLoadOrLeavesTheCellAsItWas) {
    const std::unique_ptr<CpuSampler> sampler = makeSystemCpuSampler();
    if (underWine()) {
        // wine's management service has no processor-information performance class.
        EXPECT_EQ(cpuCellAfterReading(*sampler, {}), std::nullopt);
        return;
    }
    const std::optional<std::string> cell = cpuCellAfterReading(*sampler, {});
    ASSERT_TRUE(cell);
    EXPECT_TRUE(std::regex_match(*cell, std::regex(R"(CPU: (\d\d\.\d\d|100\.00)%)"))) << *cell;
}

TEST(CpuMonitor, StoredSwitch) {
    const std::vector<std::pair<const char*, std::optional<bool>>> cases = {
        {"1", true},           {" 1.0 ", true},     {"0", false},
        {"0.00", false},       {"2", std::nullopt}, {"-1", std::nullopt},
        {"0.5", std::nullopt}, {"", std::nullopt},  {"True", std::nullopt},
    };
    for (const auto& [stored, expected] : cases) {
        EXPECT_EQ(cpuSwitchFromStored(stored, {}), expected) << '"' << stored << '"';
    }
    EXPECT_EQ(cpuSwitchStoredText(true), "1");
    EXPECT_EQ(cpuSwitchStoredText(false), "0");
}

}  // namespace
}  // namespace quillet
