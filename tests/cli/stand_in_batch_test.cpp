// Jobs run through the batch with a stand-in encoder whose outputs have chosen sizes: what the
// batch keeps, what it says, and what it leaves behind.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "cli/batch.h"
#include "cli/cli_options.h"
#include "cli/stop_requests.h"

namespace quillet::cli {
namespace {

namespace fs = std::filesystem;

constexpr long long kMb = 1048576;

struct BatchRun {
    int status;
    std::string said;
    std::vector<std::string> filesLeft;  // in the output folder
};

void setSizesFile(const fs::path& path) {
#ifdef _WIN32
    _putenv_s("CHILD_SIZES", path.string().c_str());
#else
    setenv("CHILD_SIZES", path.c_str(), 1);
#endif
}

// Runs `compress` with `options` on a 4 MB source; the encoder's outputs (the second passes', with
// --two-pass) are `sizes` long, in turn.
BatchRun compressWriting(const std::string& name, std::vector<std::string> options,
                         const std::vector<long long>& sizes) {
    const fs::path folder = fs::path(testing::TempDir()) / ("quillet-stand-in-" + name);
    fs::remove_all(folder);
    fs::create_directories(folder / "out");
    std::ofstream(folder / "clip.mp4", std::ios::binary) << std::string(4 * kMb, 's');
    {
        std::ofstream list(folder / "sizes");
        for (const long long size : sizes) list << size << "\n";
    }
    setSizesFile(folder / "sizes");
    options.insert(options.begin(), "compress");
    for (const fs::path& word : {fs::path("--output-dir"), folder / "out", folder / "clip.mp4"}) {
        options.push_back(word.string());
    }
    const Parsed parsed = parseArguments(options);
    EXPECT_TRUE(parsed.options) << parsed.error;
    StopRequests stops;
    std::FILE* out = std::tmpfile();
    const int status =
        runBatch(*parsed.options, Tools{CHILD_SIZES, CHILD_SIZES}, stops, out, out, false);
    std::rewind(out);
    std::string said;
    for (int c; (c = std::fgetc(out)) != EOF;) said += static_cast<char>(c);
    std::fclose(out);
    BatchRun run{status, said, {}};
    EXPECT_TRUE(fs::exists(folder / "clip.mp4"));
    for (const auto& entry : fs::directory_iterator(folder / "out")) {
        run.filesLeft.push_back(entry.path().filename().string() + " " +
                                std::to_string(entry.file_size()));
    }
    return run;
}

BatchRun twoPassesWriting(const std::string& name, const std::vector<long long>& sizes) {
    return compressWriting(name, {"--method", "tfs", "--target-mb", "1", "--two-pass"}, sizes);
}

TEST(TwoPassTarget, KeepsTheBestAttemptUnderTheTargetAndSaysHowFarItMissed) {
    // Over, under by 10%, over again: the middle one is kept, the last overwritten by it.
    const BatchRun run = twoPassesWriting("swing", {13 * kMb / 10, 9 * kMb / 10, 105 * kMb / 100});
    EXPECT_EQ(run.status, kAllDone) << run.said;
    EXPECT_NE(run.said.find("kept the best of 3 tries at the second pass, 10.0% under the target"),
              std::string::npos)
        << run.said;
    EXPECT_EQ(run.filesLeft,
              std::vector<std::string>{"Compressed-clip.mp4 " + std::to_string(9 * kMb / 10)});
}

TEST(TwoPassTarget, StopsAsSoonAsAnAttemptLandsWithinTwoPercentUnder) {
    const long long landed = 985 * kMb / 1000;
    const BatchRun run = twoPassesWriting("lands", {12 * kMb / 10, landed, kMb / 2});
    EXPECT_EQ(run.status, kAllDone) << run.said;
    EXPECT_EQ(run.said.find("under the target"), std::string::npos) << run.said;
    EXPECT_EQ(run.filesLeft,
              std::vector<std::string>{"Compressed-clip.mp4 " + std::to_string(landed)});
}

TEST(TwoPassTarget, FailsAndLeavesNothingWhenEveryAttemptIsOver) {
    const BatchRun run = twoPassesWriting("over", {15 * kMb / 10, 12 * kMb / 10, 11 * kMb / 10});
    EXPECT_EQ(run.status, kSomeFailed) << run.said;
    EXPECT_NE(run.said.find("none of 3 tries at the second pass came within the target"),
              std::string::npos)
        << run.said;
    EXPECT_TRUE(run.filesLeft.empty()) << run.filesLeft.front();
}

TEST(MinimumSaving, AnOutputNotSmallEnoughGoesAndTheSummaryCountsTheSourceKept) {
    const BatchRun kept = compressWriting("not-smaller", {"--min-saving", "10"}, {37 * kMb / 10});
    EXPECT_EQ(kept.status, kAllDone) << kept.said;
    EXPECT_TRUE(kept.filesLeft.empty()) << kept.filesLeft.front();
    EXPECT_NE(kept.said.find("kept the source (not smaller): "), std::string::npos) << kept.said;
    EXPECT_NE(kept.said.find("was only 7.5% smaller, and is removed"), std::string::npos)
        << kept.said;
    EXPECT_NE(kept.said.find("0 done, 1 kept the source (not smaller), 0 skipped, 0 failed"),
              std::string::npos)
        << kept.said;

    const BatchRun larger = compressWriting("larger", {"--min-saving", "0"}, {5 * kMb});
    EXPECT_EQ(larger.filesLeft.size(), 1u) << "no minimum asked: every output stays";

    const BatchRun smaller = compressWriting("smaller", {"--min-saving", "10"}, {36 * kMb / 10});
    EXPECT_EQ(smaller.filesLeft,
              std::vector<std::string>{"Compressed-clip.mp4 " + std::to_string(36 * kMb / 10)});
    EXPECT_NE(smaller.said.find("1 done, 0 skipped"), std::string::npos) << smaller.said;
}

}  // namespace
}  // namespace quillet::cli
