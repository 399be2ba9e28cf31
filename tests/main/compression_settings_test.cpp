#include <gtest/gtest.h>

#include "main/compression_settings.h"
#include "main/target_size.h"

namespace quillet {
namespace {

ShownSettings shownAtStart() {
    ShownSettings shown;
    shown.targetSize = "0,100";
    shown.videoSeconds = "600";
    shown.videoBitRate = "1237.333";
    shown.crf = "20";
    shown.abrValue = " 920 ";
    shown.minRateValue = "1.1";
    shown.minRateUnit = " M";
    shown.maxRateValue = "2.0";
    shown.maxRateUnit = "M";
    shown.bufferValue = "900 ";
    shown.bufferUnit = "k";
    shown.qp = "14";
    shown.audioBitRate = " 128 ";
    shown.preset = "VeryFast";
    return shown;
}

// The window tests cover the copy of every text; these are the cases a window cannot reach.
TEST(CopyShownSettings, ClearsTheMarksOfTheLastJobAndTakesTheUnitsOffAgain) {
    ProgramState state;
    state.JobFinished = true;
    state.OutputOpened = true;
    ShownSettings shown = shownAtStart();
    shown.methodSelected = {false, true, true, false};  // several selected: the last counts
    copyShownSettings(shown, state, FormatLocale{});
    EXPECT_EQ(state.CompressionMethod, "ABR");
    EXPECT_FALSE(state.JobFinished);
    EXPECT_FALSE(state.OutputOpened);
    EXPECT_EQ(state.ABRBitRate, "920");
    EXPECT_EQ(state.MinBitRate, "1.1M");
    EXPECT_EQ(state.AudioBitRate, "128");  // "k" added, then taken off by the bit-rate step
    EXPECT_EQ(state.VideoBitRate, "1237.333");

    state.VideoSeconds = "0000";  // unknown running time: the rate is left as the box showed it
    state.VideoBitRate = "0,000";
    state.AudioBitRate = "128k";
    applyBitRateStep(state, FormatLocale{});
    EXPECT_EQ(state.VideoBitRate, "0,000");
    EXPECT_EQ(state.AudioBitRate, "128");
}

TEST(CopyShownSettings, NoMethodSelectedLeavesTheCodeEmpty) {
    ProgramState state;
    state.CompressionMethod = "TFS";
    copyShownSettings(shownAtStart(), state, FormatLocale{});
    EXPECT_EQ(state.CompressionMethod, "");
    EXPECT_EQ(state.PresetName, "VeryFast");
    EXPECT_EQ(methodCode(0), "TFS");
    EXPECT_EQ(methodCode(3), "QP");
    EXPECT_EQ(methodCode(4), "");
}

}  // namespace
}  // namespace quillet
