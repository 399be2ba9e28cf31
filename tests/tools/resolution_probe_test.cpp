#include "tools/resolution_probe.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(ResolutionProbe, CommandAsksForWidthAndHeightOfAQuotedPath) {
    EXPECT_EQ(resolutionProbeCommandLine(R"(C:\Tools)", R"(D:\my clips\a b.mp4)", kWindowsNames),
              R"(C:\Tools\ffprobe.exe -v error -show_entries stream=width,height -of )"
              R"(default=noprint_wrappers=1 -i "D:\my clips\a b.mp4")");
    EXPECT_EQ(resolutionProbeCommandLine("/opt/q", "/v/a.mp4", kPosixNames),
              "/opt/q/ffprobe -v error -show_entries stream=width,height -of "
              "default=noprint_wrappers=1 -i \"/v/a.mp4\"");
}

TEST(ResolutionProbe, AnswersOfEitherSystemsLineEndsGiveWidthByHeight) {
    EXPECT_EQ(parseResolutionPiece("width=1920\nheight=1080\n"), "1920 x 1080");
    EXPECT_EQ(parseResolutionPiece("width=1920\r\nheight=1080\r\n"), "1920 x 1080");
    EXPECT_EQ(parseResolutionPiece("width=1280\nHEIGHT=720"), "1280 x 720");
}

TEST(ResolutionProbe, NoHeightNoAnswer) {
    EXPECT_FALSE(parseResolutionPiece(""));
    EXPECT_FALSE(parseResolutionPiece("nothing.mp4: Invalid data found when processing input\n"));
    EXPECT_FALSE(parseResolutionPiece("width=1920\n"));
}

}  // namespace
}  // namespace quillet
