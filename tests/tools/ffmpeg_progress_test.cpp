#include "tools/ffmpeg_progress.h"

#include <gtest/gtest.h>

#include <vector>

#include "tools/progress_display.h"

namespace quillet {
namespace {

const FormatLocale kEnglish;

// A window's run: it keeps what each reading gives, as the job machine does.
struct JobRun {
    std::string videoSeconds = "400";
    double encodedSeconds = 0;
    std::int16_t speedLevel = 0;

    ProgressReading read(std::string_view piece, bool followsTime = true,
                         std::string_view ending = kCaptionCompleted) {
        const ProgressReading reading = readProgressPiece(
            piece, {videoSeconds, encodedSeconds, speedLevel, followsTime, ending}, kEnglish);
        encodedSeconds = reading.encodedSeconds;
        speedLevel = reading.speedLevel;
        return reading;
    }
};

TEST(FfmpegProgress, FullStatsLineGivesTimeSizeSpeedAndPercentage) {
    JobRun run;
    const char* line =
        "frame=  100 fps= 25 q=28.0 size=     256kB time=00:00:04.00 bitrate= 524.3kbits/s "
        "speed=1.02x";
    const ProgressReading reading = run.read(line);
    EXPECT_TRUE(reading.timeSeen);
    EXPECT_EQ(reading.barMaximum, 400);
    EXPECT_EQ(reading.encodedSeconds, 4);
    EXPECT_EQ(reading.caption, "Compression Progress 01.00% Completed");
    EXPECT_EQ(reading.writtenText, "Writen: 0,000Mb");
    EXPECT_EQ(reading.speedLevel, 0);
    // The frame-rate tool's caption ends differently.
    EXPECT_EQ(JobRun().read(line, true, kCaptionComplete).caption,
              "Compression Progress 01.00% Complete");
}

TEST(FfmpegProgress, PiecesWithoutATimeLeaveTheCaptionAlone) {
    JobRun run;
    run.encodedSeconds = 30;
    run.speedLevel = 5;
    // Metadata before the stats: the first "time" is not followed by a clock.
    ProgressReading reading = run.read("    creation_time   : 2024-01-01T10:00:00.000000Z\n");
    EXPECT_TRUE(reading.timeSeen);
    EXPECT_EQ(reading.encodedSeconds, 0);
    EXPECT_FALSE(reading.caption);
    // A piece with no key keeps the encoded time, lowers the speed level once more and changes
    // nothing else.
    run.encodedSeconds = 30;
    reading = run.read("Stream mapping:\n  Stream #0:0 -> #0:0 (h264 (native) -> hevc)\n");
    EXPECT_FALSE(reading.timeSeen);
    EXPECT_EQ(reading.encodedSeconds, 30);
    EXPECT_FALSE(reading.writtenText);
    EXPECT_FALSE(reading.caption);
    EXPECT_EQ(run.speedLevel, 3);
    run.read("");  // the final empty piece, too
    EXPECT_EQ(run.speedLevel, 2);
}

TEST(FfmpegProgress, SpeedLevelFromTheFirstTwoCharacters) {
    const struct {
        const char* piece;
        int level;
    } cases[] = {{"speed=12.5x", 11}, {"speed=0.87x", -1}, {"speed= 0.5x", -1}, {"speed=1.02x", 0},
                 {"SPEED=3.1x", 2},   {"speed=N/A", 6},    {"sp", 6},           {"speed=", 6}};
    for (const auto& c : cases) {
        JobRun run;
        run.speedLevel = 7;
        EXPECT_EQ(run.read(c.piece).speedLevel, c.level) << c.piece;
    }
    // The level never wraps below the smallest 16-bit number.
    JobRun run;
    run.speedLevel = -32768;
    EXPECT_EQ(run.read("").speedLevel, -32768);
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
    EXPECT_EQ(run.read("time=00:06:41.00").caption, "Compression Progress 100.25% Completed");
    run.videoSeconds = "0";
    const ProgressReading unknownLength = run.read("time=00:00:04.00");
    EXPECT_FALSE(unknownLength.caption);
    EXPECT_EQ(unknownLength.encodedSeconds, 4);
    // ffmpeg 5.1's bogus first report, and a time cut off at the end of a piece.
    run.videoSeconds = "400";
    for (const char* piece : {"time=-577014:32:22.77 bitrate=", "size=  256kB time=00:00:0"}) {
        const ProgressReading reading = run.read(piece);
        EXPECT_EQ(reading.encodedSeconds, 0) << piece;
        EXPECT_FALSE(reading.caption) << piece;
    }
}

// Records what a reading shows, in order.
struct RecordingDisplay : ProgressDisplay {
    std::vector<std::string> calls;
    void setProgressMaximum(double s) override { calls.push_back("max " + std::to_string(int(s))); }
    void setProgressValue(double s) override { calls.push_back("bar " + std::to_string(int(s))); }
    void setProgressCaption(const std::string& c) override { calls.push_back(c); }
    void setWrittenText(const std::string& t) override { calls.push_back(t); }
    void highlightProgress() override { calls.push_back("highlight"); }
    void CompressionSpeedDisplay(int level) override {
        calls.push_back("speed " + std::to_string(level));
    }
};

TEST(FfmpegProgress, WithoutTheTimeStageOnlySizeAndSpeedAreShown) {
    const char* piece = "size=    2048kB time=00:00:04.00 speed=2.5x";
    JobRun followed;
    RecordingDisplay shown;
    showProgressReading(followed.read(piece), true, shown);
    EXPECT_EQ(shown.calls, (std::vector<std::string>{"max 400", "Writen: 0,002Mb", "bar 4",
                                                     "Compression Progress 01.00% Completed",
                                                     "highlight", "speed 1"}));

    JobRun unfollowed;
    unfollowed.encodedSeconds = 12;
    const ProgressReading reading = unfollowed.read(piece, false);
    EXPECT_FALSE(reading.timeSeen);
    EXPECT_EQ(reading.encodedSeconds, 12);
    RecordingDisplay alone;
    showProgressReading(reading, false, alone);
    EXPECT_EQ(alone.calls, (std::vector<std::string>{"Writen: 0,002Mb", "speed 1"}));
}

}  // namespace
}  // namespace quillet
