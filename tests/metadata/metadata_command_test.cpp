#include "metadata/metadata_command.h"

#include <gtest/gtest.h>

#include "tools/command_words.h"

namespace quillet {
namespace {

TEST(MetadataCommand, EmptyFieldsStillPassTwentyOneEmptyTags) {
    const std::string arguments = metadataArguments(MetadataFields{});
    EXPECT_EQ(arguments.substr(0, 62),
              " -metadata title=\"\" -metadata artist=\"\" -metadata album_artist");
    EXPECT_TRUE(arguments.ends_with(" -metadata hd_video=\"\""));
    std::size_t tags = 0;
    for (auto at = arguments.find("-metadata"); at != std::string::npos;
         at = arguments.find("-metadata", at + 1)) {
        ++tags;
    }
    EXPECT_EQ(tags, 21u);
}

TEST(MetadataCommand, ValuesAreTrimmedAndTheLastGroupIsNeverWritten) {
    MetadataFields fields;
    fields[0] = "  My  holiday ";
    fields[20] = "1";
    fields[21] = "1";  // gapless playback
    fields[22] = "1";  // compilation
    const std::string arguments = metadataArguments(fields);
    EXPECT_NE(arguments.find(" -metadata title=\"My  holiday\" "), std::string::npos);
    EXPECT_TRUE(arguments.ends_with(" -metadata hd_video=\"1\""));
    EXPECT_EQ(arguments.find("gapless"), std::string::npos);
    EXPECT_EQ(arguments.find("compilation"), std::string::npos);
}

TEST(MetadataCommand, CommandCopiesTheStreamsUnderTheTags) {
    EXPECT_EQ(metadataCommandLine(R"(C:\Tools)", R"(D:\clips\a b.mp4)", " -metadata title=\"T\"",
                                  R"(D:\clips\Compressed-a b.mp4)", kWindowsNames),
              R"(C:\Tools\ffmpeg -i "D:\clips\a b.mp4" -c:v libx265 -c copy -metadata )"
              R"(title="T" -y "D:\clips\Compressed-a b.mp4")");
}

TEST(MetadataCommand, AQuoteInAValueRunsTheRestOfTheTagsTogether) {
    // Passed as it stands, a quote leaves the rest of the command inside quotes, where each empty
    // pair reads as one quote character: ffmpeg gets one tag holding the rest of the command, and
    // no output file, so it writes nothing.
    MetadataFields fields;
    fields[0] = "say \"hi";
    const std::string command = metadataCommandLine("/q", "/v/a.mp4", metadataArguments(fields),
                                                    "/v/Compressed-a.mp4", kPosixNames);
    const std::vector<std::string> words = splitArguments(command.substr(command.find(' ') + 1));
    ASSERT_EQ(words.size(), 8u);
    EXPECT_EQ(words[6], "-metadata");
    EXPECT_TRUE(words[7].starts_with("title=say hi -metadata artist=\" -metadata album_artist=\""));
    EXPECT_TRUE(words[7].ends_with(" -metadata hd_video=\" -y /v/Compressed-a.mp4"));
}

TEST(MetadataCommand, TodaysTimeAndDateInTheUsersLanguage) {
    EXPECT_EQ(todaysTimeAndDate({15, 7, 9}, {2026, 11, 14, 6}, FormatLocale{}),
              "03:07:09 PM Saturday, Nov 14 2026");
    FormatLocale german;
    german.amMarker = "vorm.";
    german.pmMarker = "nachm.";
    german.dayNames[6] = "Samstag";
    german.monthAbbreviations[10] = "Nov.";
    EXPECT_EQ(todaysTimeAndDate({0, 0, 1}, {2026, 11, 14, 6}, german),
              "12:00:01 vorm. Samstag, Nov. 14 2026");
}

}  // namespace
}  // namespace quillet
