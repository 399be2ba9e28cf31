#include <gtest/gtest.h>

#include "main/target_size.h"

namespace quillet {
namespace {

const FormatLocale kEnglish;

TEST(SourceSize, SetsTheRangeAndStartsAtAQuarter) {
    const SourceSizeChange change = sourceSizeChanged("2,000", kEnglish);
    EXPECT_EQ(change.sliderMaximum, 2000);
    EXPECT_EQ(change.sliderPosition, 500);
    EXPECT_EQ(change.statusText, "Init Size: 2,000Mb");
    EXPECT_EQ(sourceSizeChanged("0,010", kEnglish).sliderPosition, 2);  // 2.5 goes to even
    EXPECT_EQ(sourceSizeChanged("0,014", kEnglish).sliderPosition, 4);  // 3.5 goes to even

    const SourceSizeChange empty = sourceSizeChanged("", kEnglish);
    EXPECT_FALSE(empty.sliderMaximum);
    EXPECT_FALSE(empty.sliderPosition);
}

TEST(TargetSize, ShowsShareTargetAndBitRate) {
    const TargetSizeChange change = targetSizeMoved(500, "2,000", "0000", "160", kEnglish);
    EXPECT_EQ(change.targetText, "0,500");
    EXPECT_EQ(change.shareText, "Target Size - Compress to 25% of Original Video Size");
    EXPECT_FALSE(change.bitRate);  // running time not known yet

    EXPECT_EQ(targetSizeMoved(100, "400", "600", "128", kEnglish).bitRate, "1237.333");
    EXPECT_EQ(targetSizeMoved(1, "400", "3600", "128", kEnglish).bitRate, "-125.724");  // no floor
    EXPECT_EQ(targetSizeMoved(2, "400", "1", "0", kEnglish).bitRate, "16384");
}

TEST(TargetSize, NothingChangesWithoutASourceSize) {
    for (const char* size : {"0,000", "", "N/A"}) {
        const TargetSizeChange change = targetSizeMoved(0, size, "600", "128", kEnglish);
        EXPECT_FALSE(change.targetText) << size;
        EXPECT_FALSE(change.shareText) << size;
        EXPECT_FALSE(change.bitRate) << size;
    }
}

TEST(BitRateStep, DropsTheAudioUnitAndComputesFromTheJobSettings) {
    ProgramState state;
    state.TargetSizeMb = "0,100";
    state.VideoSeconds = "600";
    state.AudioBitRate = "128k";
    state.VideoBitRate = "old";
    applyBitRateStep(state, kEnglish);
    EXPECT_EQ(state.AudioBitRate, "128");
    EXPECT_EQ(state.VideoBitRate, "1237.333");

    state.VideoSeconds = "0000";  // unknown running time: the rate is left as it was
    state.VideoBitRate = "0,000";
    applyBitRateStep(state, kEnglish);
    EXPECT_EQ(state.VideoBitRate, "0,000");
    EXPECT_EQ(state.AudioBitRate, "128");
}

}  // namespace
}  // namespace quillet
