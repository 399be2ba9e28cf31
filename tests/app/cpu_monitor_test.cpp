#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>

#include <unistd.h>

#include "app/cpu_monitor.h"
#include "app/proc_stat_sampler.h"

namespace quillet {
namespace {

// A /proc/stat text whose rows each have `busy` ticks of user time and `idle` ticks of idle time.
std::string statText(std::initializer_list<std::pair<int, int>> rows) {
    std::string text;
    int index = -1;
    for (const auto& [busy, idle] : rows) {
        text += index < 0 ? std::string("cpu ") : "cpu" + std::to_string(index) + " ";
        text += std::to_string(busy) + " 0 0 " + std::to_string(idle) + " 0 0 0 0 0 0\n";
        ++index;
    }
    return text + "intr 114 0 0\nctxt 2121854\n";
}

TEST(ProcStat, ReadsEveryCpuRowWithWaitingAsIdleAndGuestTimeCountedOnce) {
    const std::vector<ProcessorTimes> rows = parseProcStat(
        "cpu  10 20 30 400 50 6 7 8 90 100\n"
        "cpu0 10 20 30 400 50 6 7 8 90 100\n"
        "cpu12 1 2 3 4\n"  // an old kernel's four columns
        "cpu1 1 2 3\n"     // too few columns
        "cpu2 1 2 x 4\n"   // not a count
        "cpux 1 2 3 4\n"   // not a processor row
        "intr 1 2 3 4 5 6\n"
        "softirq 1 2 3 4 5\n");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].name, "cpu");
    EXPECT_EQ(rows[0].busy, 10u + 20 + 30 + 6 + 7 + 8);
    EXPECT_EQ(rows[0].total, rows[0].busy + 400 + 50);
    EXPECT_EQ(rows[1].name, "cpu0");
    EXPECT_EQ(rows[2].name, "cpu12");
    EXPECT_EQ(rows[2].busy, 6u);
    EXPECT_EQ(rows[2].total, 10u);
}

TEST(ProcStat, AveragesEveryRowAlike) {
    struct Case {
        const char* what;
        std::string before;
        std::string after;
        std::optional<double> expected;
    };
    const Case cases[] = {
        {"four processors at 50%, total too", statText({{0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}}),
         statText({{400, 400}, {100, 100}, {100, 100}, {100, 100}, {100, 100}}), 50.0},
        // The total row is 25% busy, but it weighs as much as each processor row.
        {"rows of unequal length weigh alike", statText({{0, 0}, {0, 0}, {0, 0}}),
         statText({{100, 300}, {100, 0}, {0, 300}}), (25.0 + 100.0 + 0.0) / 3},
        {"first reading compares with boot", "", statText({{10, 30}, {10, 30}}), 25.0},
        {"a processor gone off line is left out", statText({{0, 0}, {0, 0}, {0, 0}}),
         "cpu 20 0 0 20\ncpu1 10 0 0 30\n", (50.0 + 25.0) / 2},
        {"no time passed", statText({{5, 5}, {5, 5}}), statText({{5, 5}, {5, 5}}), std::nullopt},
        {"busy time stepping back counts as none, never below zero", statText({{50, 0}}),
         statText({{40, 20}}), 0.0},
        {"no rows", statText({{5, 5}}), "intr 1\n", std::nullopt},
    };
    for (const Case& c : cases) {
        const std::optional<double> percent =
            averageBusyPercent(parseProcStat(c.before), parseProcStat(c.after));
        ASSERT_EQ(percent.has_value(), c.expected.has_value()) << c.what;
        if (percent) {
            EXPECT_NEAR(*percent, *c.expected, 1e-9) << c.what;
        }
    }
}

TEST(ProcStat, SamplerComparesEachReadingWithThePreviousAndSurvivesAMissingFile) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("quillet_stat_" + std::to_string(::getpid()));
    const auto write = [&](const std::string& text) { std::ofstream(path) << text; };
    ProcStatSampler sampler(path.string());
    EXPECT_EQ(sampler.read(), std::nullopt);

    write(statText({{100, 300}, {100, 300}}));
    EXPECT_DOUBLE_EQ(sampler.read().value_or(-1), 25.0);
    write(statText({{200, 300}, {200, 300}}));
    EXPECT_DOUBLE_EQ(sampler.read().value_or(-1), 100.0);
    // A failed reading keeps the last sample for the next one.
    std::filesystem::remove(path);
    EXPECT_EQ(sampler.read(), std::nullopt);
    write(statText({{200, 400}, {200, 400}}));
    EXPECT_DOUBLE_EQ(sampler.read().value_or(-1), 0.0);
    std::filesystem::remove(path);
}

TEST(ProcStat, SystemSamplerGivesAPercentage) {
    const std::unique_ptr<CpuSampler> sampler = makeSystemCpuSampler();
    const std::optional<double> percent = sampler->read();
    ASSERT_TRUE(percent.has_value());
    EXPECT_GE(*percent, 0.0);
    EXPECT_LE(*percent, 100.0);
}

TEST(CpuMonitor, LabelText) {
    FormatLocale comma;
    comma.decimalSeparator = ",";
    comma.groupSeparator = ".";
    const std::vector<std::tuple<double, FormatLocale, std::string>> cases = {
        {5.5, {}, "CPU: 05.50%"},    {50, {}, "CPU: 50.00%"},      {0, {}, "CPU: 00.00%"},
        {37.254, {}, "CPU: 37.25%"}, {99.999, {}, "CPU: 100.00%"}, {100, {}, "CPU: 100.00%"},
        {5.5, comma, "CPU: 05,50%"},
    };
    for (const auto& [percent, locale, expected] : cases) {
        EXPECT_EQ(cpuLabelText(percent, locale), expected) << percent;
    }
    EXPECT_EQ(cpuLabelText(std::numeric_limits<double>::quiet_NaN(), {}), std::nullopt);
}

TEST(CpuMonitor, StoredSwitch) {
    const std::vector<std::pair<const char*, std::optional<bool>>> cases = {
        {"1", true},           {"0", false},           {" 1 ", true},         {"1.0", true},
        {"01", true},          {"+1", true},           {"-0", false},         {"0.00", false},
        {"2", std::nullopt},   {"-1", std::nullopt},   {"0.5", std::nullopt}, {"", std::nullopt},
        {"yes", std::nullopt}, {"True", std::nullopt}, {"1x", std::nullopt},
    };
    for (const auto& [stored, expected] : cases) {
        EXPECT_EQ(cpuSwitchFromStored(stored, {}), expected) << '"' << stored << '"';
    }
    for (const bool enabled : {true, false}) {
        EXPECT_EQ(cpuSwitchFromStored(cpuSwitchStoredText(enabled), {}), enabled);
    }
    EXPECT_EQ(cpuSwitchStoredText(false), "0");
}

}  // namespace
}  // namespace quillet
