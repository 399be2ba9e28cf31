// A two-pass target size run through the batch with a stand-in encoder whose outputs have chosen
// sizes: what it keeps, what it says, and what it leaves behind.
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

// Compresses a 1 MB target with --two-pass; the second passes write `sizes`, in turn.
BatchRun twoPassesWriting(const std::string& name, const std::vector<long long>& sizes) {
    const fs::path folder = fs::path(testing::TempDir()) / ("quillet-two-pass-" + name);
    fs::remove_all(folder);
    fs::create_directories(folder / "out");
    std::ofstream(folder / "clip.mp4", std::ios::binary) << std::string(4 * kMb, 's');
    {
        std::ofstream list(folder / "sizes");
        for (const long long size : sizes) list << size << "\n";
    }
    setSizesFile(folder / "sizes");
    const Parsed parsed =
        parseArguments({"compress", "--method", "tfs", "--target-mb", "1", "--two-pass",
                        "--output-dir", (folder / "out").string(), (folder / "clip.mp4").string()});
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
    for (const auto& entry : fs::directory_iterator(folder / "out")) {
        run.filesLeft.push_back(entry.path().filename().string() + " " +
                                std::to_string(entry.file_size()));
    }
    return run;
}

TEST(TwoPassTarget, KeepsTheBestAttemptUnderTheTargetAndSaysHowFarItMissed) {
    // Over, under by 10%, over again: the middle one is kept, the last overwritten by it.
    const BatchRun run = twoPassesWriting("swing", {13 * kMb / 10, 9 * kMb / 10, 105 * kMb / 100});
    EXPECT_EQ(run.status, kAllDone) << run.said;
    EXPECT_NE(run.said.find("kept the best attempt, 10.0% under the target after 3 encodes"),
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
    EXPECT_NE(run.said.find("no attempt came within the target after 3 encodes"), std::string::npos)
        << run.said;
    EXPECT_TRUE(run.filesLeft.empty()) << run.filesLeft.front();
}

}  // namespace
}  // namespace quillet::cli
