#include <gtest/gtest.h>

#include "cli/cli_options.h"

namespace quillet::cli {
namespace {

using Words = std::vector<std::string>;

// Each command line with "x" as its input, and the usage error it must give.
void expectRefused(const std::vector<std::pair<Words, std::string>>& cases) {
    for (auto [arguments, error] : cases) {
        arguments.push_back("x");
        const Parsed result = parseArguments(arguments);
        EXPECT_FALSE(result.options) << error;
        EXPECT_EQ(result.error, error);
    }
}

void expectAccepted(const std::vector<Words>& cases) {
    for (Words arguments : cases) {
        arguments.push_back("x");
        const Parsed result = parseArguments(arguments);
        EXPECT_TRUE(result.options) << arguments[1] << ": " << result.error;
    }
}

TEST(CliOptionRules, AnOptionOfOneMethodChoosesItWhenNoneIsNamed) {
    const std::pair<Words, Method> cases[] = {
        {{"compress"}, Method::Crf},
        {{"compress", "--target-mb", "5"}, Method::TargetSize},
        {{"estimate", "--two-pass", "--target-mb", "5"}, Method::TargetSize},
        {{"compress", "--crf", "24"}, Method::Crf},
        {{"compress", "--bufsize", "2M"}, Method::Abr},
        {{"compress", "--lookahead", "30"}, Method::Qp},
        {{"compress", "--bitrate", "1M", "--method", "abr"}, Method::Abr},
    };
    for (auto [arguments, method] : cases) {
        arguments.push_back("x");
        const Parsed result = parseArguments(arguments);
        ASSERT_TRUE(result.options) << arguments[1] << ": " << result.error;
        EXPECT_EQ(result.options->compress.method, method) << arguments[1];
    }
    EXPECT_EQ(parseArguments({"compress", "--target-mb", "5", "x"}).options->compress.targetMb, 5);
    // The commands without methods take --crf as their rate factor.
    EXPECT_EQ(parseArguments({"mp3", "--crf", "30", "x"}).options->compress.crf, 30);
    EXPECT_EQ(parseArguments({"scale", "--crf", "30", "x"}).options->scaleCrf, 30);
}

TEST(CliOptionRules, AnOptionOfAnotherMethodIsRefusedNamingTheMethodItNeeds) {
    expectRefused({
        {{"compress", "--method", "crf", "--target-mb", "5"}, "--target-mb needs --method tfs"},
        {{"compress", "--method", "tfs", "--target-mb", "5", "--bitrate", "1M"},
         "--bitrate needs --method abr"},
        {{"estimate", "--method", "qp", "--crf", "20"}, "--crf needs --method crf"},
        {{"compress", "--target-mb", "5", "--bitrate", "1M"},
         "--target-mb and --bitrate belong to different methods (tfs and abr)"},
        {{"estimate", "--qp", "20", "--crf", "20"},
         "--qp and --crf belong to different methods (qp and crf)"},
        {{"compress", "--two-pass"}, "--two-pass needs --target-mb"},
    });
}

TEST(CliOptionRules, AnOptionTheCommandDoesNotUseIsRefusedNamingItsCommands) {
    expectRefused({
        {{"compress", "--height", "480"}, "--height is for scale, not compress"},
        {{"mp3", "--fps", "30"}, "--fps is for fps, not mp3"},
        {{"compress", "--tag", "a=b"}, "--tag is for tags, not compress"},
        {{"mp3", "--target-mb", "5"}, "--target-mb is for compress and estimate, not mp3"},
        {{"tags", "--method", "crf", "--tag", "a=b"},
         "--method is for compress and estimate, not tags"},
        {{"probe", "--min-saving", "10"},
         "--min-saving is for compress, estimate, mp3, scale and fps, not probe"},
        {{"tags", "--tag", "a=b", "--min-saving", "10"},
         "--min-saving is for compress, estimate, mp3, scale and fps, not tags"},
        {{"probe", "--output-dir", "d"},
         "--output-dir is for compress, estimate, mp3, scale, fps and tags, not probe"},
        {{"scale", "--preset", "slow"},
         "--preset is for compress, estimate, mp3 and fps, not scale"},
        {{"mp3", "--audio-bitrate", "128"},
         "--audio-bitrate is for compress, estimate, scale and fps, not mp3"},
        {{"scale", "--quality", "3"}, "--quality is for mp3, not scale"},
    });
    // estimate takes a compress command line as it is.
    expectAccepted({
        {"estimate", "--output-dir", "d", "--overwrite", "--min-saving", "10", "--json"},
        {"fps", "--fps", "24", "--preset", "slow", "--audio-bitrate", "96"},
        {"tags", "--tag", "a=b", "--output-dir", "d", "--rename"},
        {"scale", "--mp3", "5", "--sample-rate", "22050", "--min-saving", "5"},
    });
}

TEST(CliOptionRules, ContradictionsAreRefusedAndRepeatsThatAgreeAreNot) {
    expectRefused({
        {{"compress", "--overwrite", "--rename"},
         "--overwrite and --rename cannot be used together"},
        {{"compress", "--method", "tfs", "--target-mb", "5", "--method", "abr"},
         "--method is given twice, as \"tfs\" and \"abr\""},
        {{"compress", "--crf", "20", "--crf", "24"}, "--crf is given twice, as \"20\" and \"24\""},
        {{"compress", "--output-dir", "a", "--output-dir", "b"},
         "--output-dir is given twice, as \"a\" and \"b\""},
    });
    expectAccepted({
        {"compress", "--crf", "24", "--crf", "24", "--json", "--json"},
        {"compress", "--overwrite", "--overwrite"},
        {"tags", "--tag", "a=1", "--tag", "a=2"},
    });
}

TEST(CliOptionRules, ValuesTheEncodersRefuseAreRefusedWithWhatTheyTake) {
    const std::string aac =
        "--sample-rate takes, for AAC audio, 7350, 8000, 11025, 12000, 16000, 22050, 24000, "
        "32000, 44100, 48000, 64000, 88200 or 96000, not ";
    const std::string mp3 =
        "--sample-rate takes, for MP3 audio, 16000, 22050, 24000, 32000, 44100 or 48000, not ";
    expectRefused({
        {{"compress", "--preset", "superduper"},
         "--preset takes ultrafast, superfast, veryfast, faster, fast, medium, slow, slower, "
         "veryslow or placebo, not \"superduper\""},
        // The window program's caption: libx265 reads the name as it is written.
        {{"mp3", "--preset", "VeryFast"},
         "--preset takes ultrafast, superfast, veryfast, faster, "
         "fast, medium, slow, slower, veryslow or placebo, not "
         "\"VeryFast\""},
        {{"compress", "--sample-rate", "12345"}, aac + "12345"},
        {{"estimate", "--sample-rate", "-44100"}, aac + "-44100"},
        {{"compress", "--sample-rate", "44.1k"},
         "--sample-rate takes a rate in Hz such as 44100, not \"44.1k\""},
        // Rates AAC takes and MP3 does not.
        {{"mp3", "--sample-rate", "64000"}, mp3 + "64000"},
        // Rates libmp3lame takes that an .mp4 cannot hold.
        {{"mp3", "--sample-rate", "8000"}, mp3 + "8000"},
        {{"scale", "--sample-rate", "7350", "--mp3", "5"}, mp3 + "7350"},
        // A look-ahead no longer than the preset's longest run of B-frames.
        {{"compress", "--qp", "20", "--lookahead", "4"},
         "--lookahead takes more than 4 with the preset veryfast (libx265 looks past its longest "
         "run of B-frames), not 4"},
        {{"compress", "--lookahead", "8", "--preset", "slower"},
         "--lookahead takes more than 8 with the preset slower (libx265 looks past its longest "
         "run of B-frames), not 8"},
    });
    expectAccepted({
        {"compress", "--preset", "placebo", "--sample-rate", "7350"},
        {"fps", "--fps", "30", "--sample-rate", "96000"},
        {"mp3", "--sample-rate", "16000"},
        {"scale", "--mp3", "2", "--sample-rate", "48000"},
        {"scale", "--sample-rate", "7350", "--audio-bitrate", "96"},
        {"compress", "--lookahead", "4", "--preset", "ultrafast"},
        // The look-ahead is the qp method's only.
        {"compress", "--preset", "slower"},
    });
}

TEST(CliOptionRules, TheVersionIsPrintedInsteadOfAnyJob) {
    const std::string version = parseArguments({"--version"}).text;
    EXPECT_EQ(version.substr(0, 12), "quillet-cli ");
    EXPECT_EQ(parseArguments({"-V"}).text, version);
    const Parsed withCommand = parseArguments({"compress", "--crf", "20", "--version", "x"});
    EXPECT_FALSE(withCommand.options);
    EXPECT_EQ(withCommand.text, version);
}

}  // namespace
}  // namespace quillet::cli
