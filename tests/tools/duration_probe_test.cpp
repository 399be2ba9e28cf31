#include "tools/duration_probe.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "children_left.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

TEST(DurationProbeCommand, WindowsForm) {
    EXPECT_EQ(durationProbeCommandLine(R"(C:\Program Files\Quillet)", R"(D:\My Videos\a.mp4)",
                                       kWindowsNames),
              R"(C:\Program Files\Quillet\ffprobe.exe -v error -show_entries format=duration )"
              R"(-of default=noprint_wrappers=1:nokey=1 "D:\My Videos\a.mp4")");
}

TEST(DurationAnswer, TheLastLineThatIsOnlyANumber) {
    const std::pair<const char*, std::optional<double>> cases[] = {
        {"7200.023000\n", 7200.023},
        {"[mov @ 0x1] stream 1, error reading header\n3.000000\n", 3.0},
        {"/v/clip 2.mp4: Invalid data found when processing input\n", std::nullopt},
        {"N/A\n", std::nullopt},
        {"12abc\n", std::nullopt},
        {"inf\n", std::nullopt},
    };
    for (const auto& [answer, seconds] : cases) {
        EXPECT_EQ(parseDurationAnswer(answer), seconds) << answer;
    }
}

TEST(DurationProbe, GoingAwayNeverWaitsForAHungChildAndEndsIt) {
    // Gone at once, and gone once the child has started: neither waits, and no child outlives it.
    for (const auto startedFor : {0ms, 300ms}) {
        auto probe = std::make_unique<DurationProbe>(CHILD_IGNORE_STOP);
        std::this_thread::sleep_for(startedFor);
        const auto started = Clock::now();
        probe.reset();
        EXPECT_LT(Clock::now() - started, 100ms);
        EXPECT_TRUE(children::noChildLeft(children::Left::Any));
    }
}

}  // namespace
}  // namespace quillet
