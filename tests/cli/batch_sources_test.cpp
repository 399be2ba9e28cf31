#include "cli/batch_sources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "cli/output_plan.h"
#include "cli/run_marks.h"
#include "cli/scratch_folder.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {
namespace {

namespace fs = std::filesystem;

// A process id no system hands out (Linux's largest is 4,194,304).
constexpr long long kEndedRun = 999999999;

class BatchSourcesTest : public ::testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(folder);
        fs::create_directories(folder / "out");
    }
    void TearDown() override { fs::remove_all(folder); }

    void make(const fs::path& file) const { std::ofstream(file) << "x"; }
    // A file of the folder by its name in UTF-8, as on every system.
    fs::path at(const std::string& name) const { return folder / pathFromUtf8(name); }
    BatchSources sourcesFor(std::vector<std::string> arguments) const {
        arguments.push_back(folder.string());
        return batchSources(parseArguments(arguments).options.value());
    }

    const fs::path folder = fs::temp_directory_path() / ("quillet-cli-sources" + runMark());
};

TEST_F(BatchSourcesTest, TheBatchsOwnOutputsAndPartialsAreNeverSources) {
    for (const char* name :
         {"E.mkv", "Compressed-E.mkv", "Compressed-E (2).mkv", "Compressed-Compressed-E.mkv",
          "Compressed-E (two).mkv", "Compressed-F.mp4", "G é.mp4", "Compressed-G é.mp4"}) {
        make(at(name));
    }
    // A partial of a run still going: not a source, and left alone.
    const fs::path going = at("Compressed-G é.quillet-partial" + runMark() + ".mp4");
    make(going);
    const BatchSources batch = sourcesFor({"compress"});
    // F is gone, so its old output is a video like any other; "(two)" is no number.
    EXPECT_EQ(batch.sources,
              (std::vector<fs::path>{folder / "Compressed-E (two).mkv", folder / "Compressed-F.mp4",
                                     folder / "E.mkv", at("G é.mp4")}));
    using NotSource = std::pair<fs::path, std::string>;
    EXPECT_EQ(batch.notSources,
              (std::vector<NotSource>{
                  {folder / "Compressed-Compressed-E.mkv", "the output of Compressed-E.mkv"},
                  {folder / "Compressed-E (2).mkv", "the output of E.mkv"},
                  {folder / "Compressed-E.mkv", "the output of E.mkv"},
                  {at("Compressed-G é.mp4"), "the output of G é.mp4"}}));
    EXPECT_TRUE(fs::exists(going));
    EXPECT_TRUE(batch.removed.empty());
    // Outputs that go elsewhere are not looked for beside the sources; probe reads everything.
    EXPECT_EQ(sourcesFor({"compress", "--output-dir", (folder / "out").string()}).sources.size(),
              8u);
    EXPECT_EQ(sourcesFor({"probe"}).sources.size(), 8u);
}

TEST_F(BatchSourcesTest, WhatAKilledRunLeftIsRemovedAndWhatARunningOneWritesIsNot) {
    const std::string ended = "-" + std::to_string(kEndedRun);
    make(folder / "A.mp4");
    const fs::path partial = folder / ("Compressed-A.quillet-partial" + ended + ".mp4");
    const fs::path setAside = fs::path(partial) += ".best";
    const fs::path unmarked = folder / "Compressed-A.quillet-partial.mp4";  // an older version's
    const fs::path output = folder / "out" / ("Compressed-A.quillet-partial" + ended + ".mp4");
    const fs::path own = folder / ("Compressed-A.quillet-partial" + runMark() + ".mp4");
    for (const fs::path& file : {partial, setAside, unmarked, output, own}) make(file);
    const fs::path scratch =
        fs::temp_directory_path() / (std::string(kScratchPrefix) + "passes" + ended + "-1");
    fs::create_directories(scratch);
    const fs::path other = fs::temp_directory_path() / (std::string(kScratchPrefix) + "passes");
    fs::create_directories(other);  // not named as the companion names them: not its own

    const BatchSources batch = sourcesFor({"compress", "--output-dir", (folder / "out").string()});
    std::vector<fs::path> removed = batch.removed;
    std::vector<fs::path> left = {output, partial, setAside, unmarked, scratch};
    std::sort(removed.begin(), removed.end());
    std::sort(left.begin(), left.end());
    EXPECT_EQ(removed, left);
    EXPECT_TRUE(fs::exists(own));
    EXPECT_TRUE(fs::exists(other));
    EXPECT_EQ(batch.sources, std::vector<fs::path>{folder / "A.mp4"});
    fs::remove_all(other);
}

TEST(RunMarks, AMarkIsTheRunsProcessIdAndOnlyARunningOneIsGoing) {
    EXPECT_EQ(markedRun("a.quillet-partial-4242.mp4", ".quillet-partial-"), 4242);
    EXPECT_FALSE(markedRun("a.quillet-partial-.mp4", ".quillet-partial-"));
    EXPECT_FALSE(markedRun("a.quillet-partial.mp4", ".quillet-partial-"));
    EXPECT_FALSE(markedRun("a.quillet-partial-99999999999999999999.mp4", ".quillet-partial-"));
    EXPECT_TRUE(runGoing(std::stoll(runMark().substr(1))));
    EXPECT_FALSE(runGoing(kEndedRun));
    EXPECT_FALSE(runGoing(0));
    EXPECT_TRUE(isWorkingFile("/v/Compressed-a.quillet-partial-12.mp4.best"));
    EXPECT_FALSE(isWorkingFile("/v/quillet-partial.mp4"));
}

}  // namespace
}  // namespace quillet::cli
