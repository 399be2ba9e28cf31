#include "app/tool_check.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "app/scripted_dialogs.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

TEST(FindTools, WholeNamesWithCaseIgnoredOnlyOnWindows) {
    const struct {
        PlatformNames names;
        std::vector<std::string> files;
        bool ffmpeg, ffprobe;
    } cases[] = {
        {kWindowsNames, {"FFMPEG.EXE", "FFProbe.exe"}, true, true},
        {kWindowsNames, {"ffmpeg.exe.bak", "ffmpeg", "ffprobe"}, false, false},
        {kPosixNames, {"ffmpeg", "ffprobe"}, true, true},
        {kPosixNames, {"FFmpeg", "ffprobe.exe"}, false, false},
    };
    for (const auto& c : cases) {
        const ToolsFound found = findTools(c.files, c.names);
        EXPECT_EQ(found.ffmpeg, c.ffmpeg) << c.files[0];
        EXPECT_EQ(found.ffprobe, c.ffprobe) << c.files[0];
    }
}

TEST(MissingToolsText, TheLaterReasonOverridesAndTheFfprobeLineHasNoFullStop) {
    EXPECT_EQ(missingToolsText({true, false}),
              "This project needs FFmpeg and FFprobe to run correctly.\r\n"
              "FFprobe was not found in the project directory\r\n\r\n"
              "Do you want to visit the FFMpeg Download Webpage ?");
    EXPECT_NE(missingToolsText({false, false})->find("\r\nNeither FFprobe or FFmpeg were found"),
              std::string::npos);
    EXPECT_FALSE(missingToolsText({true, true}));
}

class ToolPresence : public ::testing::Test {
protected:
    ToolPresence() { fs::create_directories(folder); }
    ~ToolPresence() override { fs::remove_all(folder); }

    // A file named as this system's check looks for it.
    void addTool(const char* name) {
        std::ofstream(folder / (name + std::string(kThisPlatform.executableSuffix))) << "tool";
    }

    const fs::path folder =
        fs::temp_directory_path() / ("quillet-tools-" + std::to_string(::getpid()));
    ScriptedDialogs dialogs;
};

TEST_F(ToolPresence, YesOpensTheDownloadPageAndNoWarns) {
    dialogs.answerBox(MessageBoxButton::Yes);
    dialogs.answerBox(MessageBoxButton::No);
    checkToolPresence(folder, kThisPlatform, dialogs);
    checkToolPresence(folder, kThisPlatform, dialogs);
    const auto& shown = dialogs.shown();
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shown[0].title, "FFmpeg Components Not Found");
    EXPECT_EQ(shown[0].flags, 51);
    EXPECT_EQ(shown[1].text, "https://ffmpeg.org/download.html");
    EXPECT_EQ(shown[3].title, "Most functions will Fail");
    EXPECT_EQ(shown[3].flags, 48);
}

TEST_F(ToolPresence, ToolsPutInPlaceWhileRunningAreFoundAtTheNextCheck) {
    addTool("ffmpeg");
    checkToolPresence(folder, kThisPlatform, dialogs);  // closed: Cancel
    ASSERT_EQ(dialogs.shown().size(), 1u);
    addTool("ffprobe");
    checkToolPresence(folder, kThisPlatform, dialogs);
    EXPECT_EQ(dialogs.shown().size(), 1u);
}

TEST_F(ToolPresence, AFolderThatCannotBeListedGivesThePlainErrorBox) {
    checkToolPresence(folder / "missing", kThisPlatform, dialogs);
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].text,
              "An Error prevented checking of FFmpeg and FFprobe presence.");
    EXPECT_EQ(dialogs.shown()[0].flags, 0);
}

}  // namespace
}  // namespace quillet
