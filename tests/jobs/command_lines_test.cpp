#include "jobs/command_lines.h"

#include <gtest/gtest.h>

#include "jobs/output_name.h"
#include "tools/command_words.h"

namespace quillet {
namespace {

const std::string kFolder = R"(C:\Tools\Encoder)";

ProgramState holidayJob() {
    ProgramState job;
    job.SourceVideo = R"(C:\Videos\holiday.mp4)";
    job.OutputVideo = R"(C:\Videos\Compressed-holiday.mp4)";
    job.PresetName = "VeryFast";
    job.AudioBitRate = "128";
    job.SampleRate = "48000";
    job.VideoBitRate = "1237.333";
    job.CRFValue = "28";
    job.ABRBitRate = "1.5";
    job.ABRUnit = "M";
    job.MinBitRate = "1.1M";
    job.MaxBitRate = "2.0M";
    job.BufferSize = "3.0M";
    job.QPValue = "30";
    job.QPLookAhead = "20";
    return job;
}

TEST(CommandLines, TheFourWorkedExamplesToTheCharacter) {
    const ProgramState job = holidayJob();
    EXPECT_EQ(targetSizeCommandLine(kFolder, job, kWindowsNames),
              R"(C:\Tools\Encoder\ffmpeg.exe -i "C:\Videos\holiday.mp4" -c:v libx265 -preset )"
              R"(veryfast -b:v 1237.333k -c:a aac -b:a 128k -ar 48000 -y )"
              R"("C:\Videos\Compressed-holiday.mp4")");
    EXPECT_EQ(crfCommandLine(kFolder, job, kWindowsNames),
              R"(C:\Tools\Encoder\ffmpeg.exe -i "C:\Videos\holiday.mp4" -c:v libx265 -crf 28 )"
              R"(-preset veryfast -c:a aac -b:a 128k -ar 48000 -y )"
              R"("C:\Videos\Compressed-holiday.mp4")");
    EXPECT_EQ(abrCommandLine(kFolder, job, kWindowsNames),
              R"(C:\Tools\Encoder\ffmpeg -i "C:\Videos\holiday.mp4" -c:v libx265 -preset )"
              R"(veryfast -b:v 1.5M -minrate 1.1M -maxrate 2.0M -bufsize 3.0M -c:a aac -ar )"
              R"(48000 -b:a 128 -y C:\Videos\Compressed-holiday.mp4)");
    EXPECT_EQ(qpCommandLine(kFolder, job, kWindowsNames),
              R"(C:\Tools\Encoder\ffmpeg -i "C:\Videos\holiday.mp4" -c:v libx265 -x265-params )"
              R"(qp=30:rc-lookahead=20 -preset veryfast -c:a aac -ar 48000 -b:a 128k -y )"
              R"(C:\Videos\Compressed-holiday.mp4)");
}

TEST(CommandLines, LinuxFormAndTheEdgesOfTheValues) {
    ProgramState job = holidayJob();
    job.SourceVideo = "/home/ann/my clip.mp4";
    job.OutputVideo = "/home/ann/Compressed-my clip.mp4";
    job.PresetName = "Medium";
    job.VideoBitRate = "1500";
    const std::string tfs = targetSizeCommandLine("/opt/quillet", job, kPosixNames);
    EXPECT_EQ(tfs,
              "/opt/quillet/ffmpeg -i \"/home/ann/my clip.mp4\" -c:v libx265 -preset medium "
              "-b:v 1500k -c:a aac -b:a 128k -ar 48000 -y \"/home/ann/Compressed-my clip.mp4\"");
    // ABR passes the audio rate bare and, like QP, splits an output path at its blank.
    const std::string abr = abrCommandLine("/opt/quillet", job, kPosixNames);
    EXPECT_NE(abr.find(" -b:a 128 -y /home/ann/Compressed-my clip.mp4"), std::string::npos);
    EXPECT_NE(qpCommandLine("/opt/quillet", job, kPosixNames).find(" -b:a 128k -y /home/ann/"),
              std::string::npos);
    EXPECT_EQ(abr.rfind("/opt/quillet/ffmpeg -i ", 0), 0u);

    // A Linux file name holding a double quote stays one argument.
    job.SourceVideo = R"(/tmp/a" -f null "b.mp4)";
    const std::string crf = crfCommandLine("/opt/quillet", job, kPosixNames);
    const auto words = splitArguments(crf.substr(crf.find(' ')));
    ASSERT_GE(words.size(), 2u);
    EXPECT_EQ(words[1], job.SourceVideo);
    EXPECT_EQ(words[2], "-c:v");
}

TEST(OutputName, BesideTheSourceBehindTheWordCompressed) {
    EXPECT_EQ(compressedFileName(R"(D:\clip.avi)", '\\'), R"(D:\Compressed-clip.avi)");
    EXPECT_EQ(compressedFileName(R"(C:\Videos\holiday.mp4)", '\\'),
              R"(C:\Videos\Compressed-holiday.mp4)");
    EXPECT_EQ(compressedFileName("  /v/a b.mp4  ", '/'), "/v/Compressed-a b.mp4");
    EXPECT_EQ(compressedFileName("clip.avi", '\\'), std::nullopt);
    EXPECT_EQ(compressedFileName(R"(D:\clip.avi)", '/'), std::nullopt);
}

}  // namespace
}  // namespace quillet
