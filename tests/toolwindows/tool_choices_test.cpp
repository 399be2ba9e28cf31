#include <gtest/gtest.h>

#include "toolwindows/down_scale_choices.h"
#include "toolwindows/frame_rate_choices.h"
#include "toolwindows/mp3_tool_choices.h"
#include "toolwindows/sample_rate_choices.h"
#include "toolwindows/tool_command_lines.h"

namespace quillet {
namespace {

const std::string kFolder = R"(C:\Tools)";

TEST(ToolCommandLines, TheWorkedExamplesToTheCharacter) {
    const Mp3AudioJob mp3{R"(D:\v\clip.mp4)",           20, "veryfast", 5, "44100",
                          R"(D:\v\Compressed-clip.mp4)"};
    EXPECT_EQ(mp3AudioCommandLine(kFolder, mp3, kWindowsNames),
              R"(C:\Tools\ffmpeg -i "D:\v\clip.mp4" -c:v libx265 -crf 20 -preset veryfast )"
              R"(-codec:a libmp3lame -qscale:a 5 -ar 44100 -y "D:\v\Compressed-clip.mp4")");

    const FrameRateJob fps{R"(C:\Videos\holiday.mp4)",           25, "VeryFast", "160", "44100",
                           R"(C:\Videos\Compressed-holiday.mp4)"};
    EXPECT_EQ(frameRateCommandLine(kFolder, fps, kWindowsNames),
              R"(C:\Tools\ffmpeg -i "C:\Videos\holiday.mp4" -c:v libx265 -filter:v fps=25 )"
              R"(-preset veryfast -c:a aac -b:a 160k -ar 44100 -y )"
              R"("C:\Videos\Compressed-holiday.mp4")");
}

TEST(ToolCommandLines, LinuxFormQuotesPathsWithBlanksAndCallsFfmpegByItsOwnName) {
    const Mp3AudioJob mp3{"/home/é v/日本.mp4",           1, "slow", 9, "16000",
                          "/home/é v/Compressed-日本.mp4"};
    EXPECT_EQ(mp3AudioCommandLine("/opt/q", mp3, kPosixNames),
              "/opt/q/ffmpeg -i \"/home/é v/日本.mp4\" -c:v libx265 -crf 1 -preset slow "
              "-codec:a libmp3lame -qscale:a 9 -ar 16000 -y \"/home/é v/Compressed-日本.mp4\"");
}

TEST(ToolCommandLines, AnAudioRateLeftWithItsUnitByAResetGetsTheUnitOnce) {
    const FrameRateJob fps{"/v/a.mp4", 30, "veryfast", "192k", "44100", "/v/Compressed-a.mp4"};
    EXPECT_NE(frameRateCommandLine("/q", fps, kPosixNames).find(" -b:a 192k -ar "),
              std::string::npos);
}

TEST(ToolCommandLines, DownScaleWorkedExampleAndItsRateFactorAsymmetry) {
    DownScaleJob job{R"(D:\v\a b.mp4)", "854:480", true, true, 25, 5, R"(D:\v\Compressed-a b.mp4)"};
    EXPECT_EQ(downScaleCommandLine(kFolder, job, kWindowsNames),
              R"(C:\Tools\ffmpeg -i "D:\v\a b.mp4" -c:v libx265 -crf 25 -vf )"
              R"(scale=854:480,setsar=1:1 -codec:a libmp3lame -qscale:a 5 -y )"
              R"("D:\v\Compressed-a b.mp4")");
    job.mp3Audio = false;  // "Set CRF" alone: always 40
    EXPECT_EQ(downScaleCommandLine(kFolder, job, kWindowsNames),
              R"(C:\Tools\ffmpeg -i "D:\v\a b.mp4" -c:v libx265 -crf 40 -vf )"
              R"(scale=854:480,setsar=1:1 -y "D:\v\Compressed-a b.mp4")");
    job.setCrf = false;
    EXPECT_EQ(downScaleCommandLine(kFolder, job, kWindowsNames),
              R"(C:\Tools\ffmpeg -i "D:\v\a b.mp4" -c:v libx265 -vf )"
              R"(scale=854:480,setsar=1:1 -y "D:\v\Compressed-a b.mp4")");
    job.mp3Audio = true;
    EXPECT_EQ(downScaleCommandLine(kFolder, job, kWindowsNames),
              R"(C:\Tools\ffmpeg -i "D:\v\a b.mp4" -c:v libx265 -vf )"
              R"(scale=854:480,setsar=1:1 -codec:a libmp3lame -qscale:a 5 -y )"
              R"("D:\v\Compressed-a b.mp4")");
    // No source chosen: ffmpeg gets an empty quoted name, and refuses it.
    EXPECT_EQ(downScaleCommandLine("/q", DownScaleJob{}, kPosixNames),
              "/q/ffmpeg -i \"\" -c:v libx265 -vf scale=426:240,setsar=1:1 -y \"\"");
}

TEST(Mp3ToolChoices, EveryListItemGivesAFiveDigitRate) {
    const char* expected[] = {"16000", "22050", "32000", "44100", "48000"};
    for (std::size_t item = 0; item < kMp3SampleRateItems.size(); ++item) {
        EXPECT_EQ(sampleRateOfListItem(kMp3SampleRateItems[item]), expected[item]);
    }
    EXPECT_EQ(sampleRateCaption("22050"), "Audio Sample Rate 22050kHz");
    EXPECT_EQ(presetCaption("Medium"), "Preset  Medium");
}

TEST(Mp3ToolChoices, RunningTimeReadsAsAClockOnceKnown) {
    EXPECT_EQ(toolRunningTimeText(std::nullopt), "");
    EXPECT_EQ(toolRunningTimeText(125.4), "0:02:05");
    EXPECT_EQ(toolRunningTimeText(3600 * 30 + 1), "6:00:01");   // whole days are lost
    EXPECT_EQ(toolRunningTimeText(3600.0 * 100), "100:00:00");  // the player's own, longer form
}

TEST(Mp3ToolChoices, ViewedCommandBreaksAtEveryDash) {
    EXPECT_EQ(viewedCommandText("/q/ffmpeg -i \"/my-clip.mp4\" -y"),
              "/q/ffmpeg \ni \"/my\nclip.mp4\" \ny\n\nExecute this set of instructions now ?");
    EXPECT_FALSE(viewedCommandText("no options"));
}

TEST(FrameRateChoices, CustomTextGivesTheWholeNumberBelowIt) {
    const FormatLocale english;
    EXPECT_EQ(customFrameRate("29", english), 29);
    EXPECT_EQ(customFrameRate("23.9", english), 23);
    EXPECT_EQ(customFrameRate(" 0 ", english), 0);
    EXPECT_EQ(customFrameRate("-5.5", english), -6);
    EXPECT_FALSE(customFrameRate("abc", english));
    EXPECT_FALSE(customFrameRate("", english));
    EXPECT_FALSE(customFrameRate("99999999999", english));
}

TEST(SampleRateChoices, CaptionsGiveTheirNumberAndOnlyTwoMatchTheMainWindow) {
    EXPECT_EQ(sampleRateOfCaption("384000kHz"), "384000");
    EXPECT_EQ(sampleRateOfCaption(" 8000 KHZ"), "8000");
    EXPECT_FALSE(sampleRateOfCaption("22050 Hz"));
    for (int option = 0; option < static_cast<int>(kChooserRateCaptions.size()); ++option) {
        const auto item = mainWindowRateItem(option);
        const std::string rate = *sampleRateOfCaption(kChooserRateCaptions[option]);
        EXPECT_EQ(item.has_value(), rate == "44100" || rate == "48000") << rate;
        if (item) {
            EXPECT_EQ(chooserOptionOf(item), option);
        }
    }
    EXPECT_FALSE(chooserOptionOf(std::nullopt));
}

}  // namespace
}  // namespace quillet
