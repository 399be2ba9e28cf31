#include "tools/ffmpeg_progress.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

const FormatLocale kEnglish;

struct JobRun {
    ProgramState state;
    JobRun() { state.VideoSeconds = "400"; }
    ProgressReading read(std::string_view piece, bool withTime = true) {
        return readProgressPiece(piece, withTime, state, kEnglish);
    }
};

TEST(FfmpegProgress, FullStatsLineGivesTimeSizeSpeedAndPercentage) {
    JobRun run;
    const ProgressReading reading = run.read(
        "frame=  100 fps= 25 q=28.0 size=     256kB time=00:00:04.00 bitrate= 524.3kbits/s "
        "speed=1.02x");
    EXPECT_EQ(run.state.EncodedSeconds, 4);
    EXPECT_TRUE(reading.timeSeen);
    EXPECT_EQ(reading.barMaximum, 400);
    EXPECT_EQ(reading.barValue, 4);
    EXPECT_EQ(reading.percentText, "01.00");
    EXPECT_EQ(progressCaption(*reading.percentText), "Compression Progress 01.00% Completed");
    EXPECT_EQ(reading.writtenText, "Writen: 0,000Mb");
    EXPECT_EQ(run.state.SpeedLevel, 0);
}

TEST(FfmpegProgress, PiecesWithoutATimeLeaveTheCaptionAlone) {
    JobRun run;
    run.state.EncodedSeconds = 30;
    run.state.SpeedLevel = 5;
    // Metadata before the stats: the first "time" is not followed by a clock.
    ProgressReading reading = run.read("    creation_time   : 2024-01-01T10:00:00.000000Z\n");
    EXPECT_TRUE(reading.timeSeen);
    EXPECT_EQ(run.state.EncodedSeconds, 0);
    EXPECT_EQ(reading.barValue, 0);
    EXPECT_FALSE(reading.percentText);
    // A piece with no key lowers the speed level once more and changes nothing else.
    reading = run.read("Stream mapping:\n  Stream #0:0 -> #0:0 (h264 (native) -> hevc)\n");
    EXPECT_FALSE(reading.timeSeen);
    EXPECT_FALSE(reading.writtenText);
    EXPECT_FALSE(reading.percentText);
    EXPECT_EQ(run.state.SpeedLevel, 3);
    run.read("");  // the final empty piece, too
    EXPECT_EQ(run.state.SpeedLevel, 2);
}

TEST(FfmpegProgress, SpeedLevelFromTheFirstTwoCharacters) {
    const struct {
        const char* piece;
        int level;
    } cases[] = {{"speed=12.5x", 11}, {"speed=0.87x", -1}, {"speed= 0.5x", -1}, {"speed=1.02x", 0},
                 {"SPEED=3.1x", 2},   {"speed=N/A", 6},    {"sp", 6},           {"speed=", 6}};
    for (const auto& c : cases) {
        JobRun run;
        run.state.SpeedLevel = 7;
        run.read(c.piece);
        EXPECT_EQ(run.state.SpeedLevel, c.level) << c.piece;
    }
}

TEST(FfmpegProgress, WrittenSizeInAllTheFormsFfmpegPrints) {
    const struct {
        const char* piece;
        const char* written;
    } cases[] = {
        {"size=    2048kB time=", "Writen: 0,002Mb"},
        {"size=   13312kB time=", "Writen: 0,013Mb"},
        {"size= 1572864kB time=", "Writen: 1,536Mb"},
        {"size=   13312KiB time=", "Writen: 0,013Mb"},             // newer ffmpeg's unit
        {"Lsize=   13312kB time=00:00:09.98", "Writen: 0,013Mb"},  // the final line
        {"size=N/A time=00:00:01.00", "Writen: N/A timeMb"},
        {"size=   133", "Writen: 0,000Mb"},  // cut off at the end of a piece
    };
    for (const auto& c : cases) {
        JobRun run;
        EXPECT_EQ(run.read(c.piece).writtenText, c.written) << c.piece;
    }
}

TEST(FfmpegProgress, PercentageEdges) {
    JobRun run;
    EXPECT_EQ(run.read("time=00:06:41.00").percentText, "100.25");  // past the source's end
    run.state.VideoSeconds = "0";
    const ProgressReading unknownLength = run.read("time=00:00:04.00");
    EXPECT_FALSE(unknownLength.percentText);
    EXPECT_EQ(run.state.EncodedSeconds, 4);
    // ffmpeg 5.1's bogus first report, and a time cut off at the end of a piece.
    run.state.VideoSeconds = "400";
    for (const char* piece : {"time=-577014:32:22.77 bitrate=", "size=  256kB time=00:00:0"}) {
        const ProgressReading reading = run.read(piece);
        EXPECT_EQ(run.state.EncodedSeconds, 0) << piece;
        EXPECT_FALSE(reading.percentText) << piece;
    }
}

TEST(FfmpegProgress, WithoutTheTimeStageOnlySizeAndSpeedCount) {
    JobRun run;
    run.state.EncodedSeconds = 12;
    const ProgressReading reading = run.read("size=    2048kB time=00:00:04.00 speed=2.5x", false);
    EXPECT_FALSE(reading.timeSeen);
    EXPECT_FALSE(reading.percentText);
    EXPECT_EQ(run.state.EncodedSeconds, 12);
    EXPECT_EQ(reading.writtenText, "Writen: 0,002Mb");
    EXPECT_EQ(run.state.SpeedLevel, 1);
}

}  // namespace
}  // namespace quillet
