#include "widgets/source_video.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(SourceFormat, OnlyTheMkvExtensionIsRefusedWhateverItsCase) {
    const struct {
        const char* path;
        char separator;
        bool refused;
    } cases[] = {
        {R"(C:\Videos\clip.mkv)", '\\', true},  {R"(C:\Videos\Clip.MKV)", '\\', true},
        {"/home/user/Clip.MkV", '/', true},     {R"(C:\Videos\clip.mkv.mp4)", '\\', false},
        {R"(C:\old.mkv\clip)", '\\', false},     // a folder's extension is not the file's
        {R"(C:\Videos\clip.ogv)", '\\', false},  // outside the dialog's list, yet accepted
    };
    for (const auto& c : cases) {
        EXPECT_EQ(isRefusedSourceFormat(c.path, c.separator), c.refused) << c.path;
    }
}

TEST(RunningTime, PlayerTextAndSecondsBoxFromFfprobesSeconds) {
    const struct {
        std::optional<double> seconds;
        const char* text;
        bool known;
        std::optional<int> videoSeconds;
    } cases[] = {
        {std::nullopt, "", false, std::nullopt},  // not answered (yet)
        {0.2, "00:00", false, 0},
        {125, "02:05", true, 125},
        {3599.6, "1:00:00", true, 3600},
        {7199.98, "2:00:00", true, 7200},
        {90000, "25:00:00", true, 3600},            // a whole day is lost
        {360000, "100:00:00", true, std::nullopt},  // too long to read as a clock
    };
    for (const auto& c : cases) {
        const std::string text = runningTimeText(c.seconds);
        EXPECT_EQ(text, c.text) << c.seconds.value_or(-1);
        EXPECT_EQ(runningTimeKnown(text), c.known) << c.text;
        EXPECT_EQ(videoSecondsShown(text, c.seconds), c.videoSeconds) << c.text;
    }
}

}  // namespace
}  // namespace quillet
