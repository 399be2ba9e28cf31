#include <gtest/gtest.h>

#include "main/compression_settings.h"

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

TEST(CopyShownSettings, CopiesTrimmedAndJoinedTextsThenTheBitRate) {
    ProgramState state;
    state.JobFinished = true;
    state.OutputOpened = true;
    state.CompressionMethod = "QP";
    ShownSettings shown = shownAtStart();
    shown.methodSelected = {false, false, true, false};
    copyShownSettings(shown, state, FormatLocale{});

    EXPECT_EQ(state.CompressionMethod, "ABR");
    EXPECT_FALSE(state.JobFinished);
    EXPECT_FALSE(state.OutputOpened);
    EXPECT_EQ(state.TargetSizeMb, "0,100");
    EXPECT_EQ(state.VideoSeconds, "600");
    EXPECT_EQ(state.CRFValue, "20");
    EXPECT_EQ(state.ABRBitRate, "920");
    EXPECT_EQ(state.MinBitRate, "1.1M");
    EXPECT_EQ(state.MaxBitRate, "2.0M");
    EXPECT_EQ(state.BufferSize, "900k");
    EXPECT_EQ(state.QPValue, "14");
    EXPECT_EQ(state.AudioBitRate, "128");  // "k" added, then taken off by the bit-rate step
    EXPECT_EQ(state.PresetName, "VeryFast");
    EXPECT_EQ(state.VideoBitRate, "1237.333");
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
