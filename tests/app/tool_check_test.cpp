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
        {kWindowsNames, {"readme.txt", "ffprobe.exe"}, false, true},
        {kPosixNames, {"ffmpeg", "ffprobe"}, true, true},
        {kPosixNames, {"FFmpeg", "ffprobe.exe", "ffmpeg.bak"}, false, false},
    };
    for (const auto& c : cases) {
        const ToolsFound found = findTools(c.files, c.names);
        EXPECT_EQ(found.ffmpeg, c.ffmpeg) << c.files[0] << " " << c.files[1];
        EXPECT_EQ(found.ffprobe, c.ffprobe) << c.files[0] << " " << c.files[1];
    }
}

TEST(MissingToolsText, TheReasonLineNamesWhatIsMissing) {
    const auto text = [](const char* reason) {
        return std::string("This project needs FFmpeg and FFprobe to run correctly.\r\n") + reason +
               "\r\n\r\nDo you want to visit the FFMpeg Download Webpage ?";
    };
    EXPECT_EQ(missingToolsText({false, true}),
              text("FFmpeg was not found in the project directory."));
    // Without a full stop, as it always was.
    EXPECT_EQ(missingToolsText({true, false}),
              text("FFprobe was not found in the project directory"));
    EXPECT_EQ(missingToolsText({false, false}),
              text("Neither FFprobe or FFmpeg were found in the project directory."));
    EXPECT_FALSE(missingToolsText({true, true}));
}

class ToolPresence : public ::testing::Test {
protected:
    ToolPresence() { fs::create_directories(folder); }
    ~ToolPresence() override { fs::remove_all(folder); }

    void addFile(const std::string& name) { std::ofstream(folder / name) << "tool"; }
    // The names this system's check looks for.
    static std::string tool(const char* name) {
        return name + std::string(kThisPlatform.executableSuffix);
    }

    const fs::path folder =
        fs::temp_directory_path() / ("quillet-tools-" + std::to_string(::getpid()));
    ScriptedDialogs dialogs;
};

TEST_F(ToolPresence, EachAnswerOfTheOfferDoesItsOwnThing) {
    const std::string secondBox =
        "This project cannot perform the tasks required of it.\r\n"
        "FFmpeg and FFprobe are required\r\n\r\nQuillet Cannot Continue";
    for (MessageBoxButton answer :
         {MessageBoxButton::Yes, MessageBoxButton::No, MessageBoxButton::Cancel}) {
        ScriptedDialogs answered;
        answered.answerBox(answer);
        checkToolPresence(folder, kThisPlatform, answered);
        const auto& shown = answered.shown();
        ASSERT_GE(shown.size(), 1u);
        EXPECT_EQ(shown[0].title, "FFmpeg Components Not Found");
        EXPECT_EQ(shown[0].flags, 51);
        ASSERT_EQ(shown.size(), answer == MessageBoxButton::Cancel ? 1u : 2u);
        if (answer == MessageBoxButton::Yes) {
            EXPECT_EQ(shown[1].kind, "open externally");
            EXPECT_EQ(shown[1].text, "https://ffmpeg.org/download.html");
        } else if (answer == MessageBoxButton::No) {
            EXPECT_EQ(shown[1].text, secondBox);
            EXPECT_EQ(shown[1].title, "Most functions will Fail");
            EXPECT_EQ(shown[1].flags, 48);
        }
    }
}

TEST_F(ToolPresence, OnlyRegularFilesCountAndLinksCountAsWhatTheyName) {
    fs::create_directory(folder / tool("ffmpeg"));
    addFile("real probe");
    fs::create_symlink(folder / "real probe", folder / tool("ffprobe"));
    checkToolPresence(folder, kThisPlatform, dialogs);
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_NE(dialogs.shown()[0].text.find("FFmpeg was not found"), std::string::npos);
}

TEST_F(ToolPresence, ToolsPutInPlaceWhileRunningAreFoundAtTheNextCheck) {
    checkToolPresence(folder, kThisPlatform, dialogs);
    EXPECT_EQ(dialogs.shown().size(), 1u);
    addFile(tool("ffmpeg"));
    addFile(tool("ffprobe"));
    checkToolPresence(folder, kThisPlatform, dialogs);
    EXPECT_EQ(dialogs.shown().size(), 1u);  // nothing more shown
}

TEST_F(ToolPresence, AFolderThatCannotBeListedGivesThePlainErrorBox) {
    checkToolPresence(folder / "missing", kThisPlatform, dialogs);
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].text,
              "An Error prevented checking of FFmpeg and FFprobe presence.");
    EXPECT_EQ(dialogs.shown()[0].title, kApplicationTitle);
    EXPECT_EQ(dialogs.shown()[0].flags, 0);
}

}  // namespace
}  // namespace quillet
