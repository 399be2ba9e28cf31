// What a compressed output keeps of a source that has everything at once, as ffprobe finds it:
// in one pass and in two, into an .mp4 and a Matroska file.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

const fs::path kFolder =
    fs::temp_directory_path() / ("quillet-cli-kept-streams-" + std::to_string(getpid()));

// What a command printed on its standard output.
std::string outputOf(const std::string& command) {
    std::string text;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        std::array<char, 4096> buffer{};
        while (const std::size_t read = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
            text.append(buffer.data(), read);
        }
        pclose(pipe);
    }
    return text;
}

std::string quoted(const fs::path& path) {
    return "'" + path.string() + "'";
}

class KeptStreams : public ::testing::TestWithParam<std::tuple<std::string, bool>> {
protected:
    // Four seconds, the first two at 15 pictures a second and the rest at 30; 5.1 sound at
    // 48 kHz and a French stereo track at 22.05 kHz; subtitles, two chapters and a title.
    static void SetUpTestSuite() {
        fs::remove_all(kFolder);
        fs::create_directories(kFolder);
        std::ofstream(kFolder / "subtitles.srt") << "1\n00:00:00,500 --> 00:00:02,000\nHello\n\n"
                                                    "2\n00:00:02,500 --> 00:00:03,500\nWorld\n";
        std::ofstream(kFolder / "tags.txt")
            << ";FFMETADATA1\ntitle=Everything\n"
               "[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=2000\ntitle=One\n"
               "[CHAPTER]\nTIMEBASE=1/1000\nSTART=2000\nEND=4000\ntitle=Two\n";
        const std::string inputs =
            " -f lavfi -i testsrc2=s=320x240:r=15:d=2 -f lavfi -i testsrc2=s=320x240:r=30:d=2"
            " -f lavfi -i sine=f=220:sample_rate=48000:d=4 -f lavfi -i "
            "sine=f=440:sample_rate=22050:d=4"
            " -i " +
            quoted(kFolder / "subtitles.srt") + " -i " + quoted(kFolder / "tags.txt") +
            " -filter_complex '[0:v]setpts=PTS-STARTPTS[a];[1:v]setpts=PTS-STARTPTS[b];"
            "[a][b]concat=n=2:v=1:a=0[v];[2:a]pan=5.1|c0=c0|c1=c0|c2=c0|c3=c0|c4=c0|c5=c0[s];"
            "[3:a]aformat=channel_layouts=stereo[t]'"
            " -map '[v]' -map '[s]' -map '[t]' -map 4:s -map_metadata 5 -map_chapters 5"
            " -metadata:s:a:1 language=fra -fps_mode vfr -c:v libx264 -preset ultrafast -c:a aac";
        for (const char* ending : {".mp4", ".mkv"}) {
            const std::string subtitles = std::string(ending) == ".mp4" ? "mov_text" : "srt";
            const std::string command = "ffmpeg -v error" + inputs + " -c:s " + subtitles + " " +
                                        quoted(kFolder / ("all" + std::string(ending)));
            ASSERT_EQ(std::system(command.c_str()), 0);
        }
    }
    static void TearDownTestSuite() { fs::remove_all(kFolder); }
};

TEST_P(KeptStreams, EveryStreamTheContainerHoldsAndEveryPictureAreKept) {
    const auto& [ending, twoPasses] = GetParam();
    const fs::path source = kFolder / ("all" + ending);
    const fs::path output = kFolder / (twoPasses ? "two" : "one") / ("Compressed-all" + ending);
    const std::string passes = twoPasses ? " --method tfs --target-mb 1 --two-pass" : "";
    ASSERT_EQ(std::system((std::string(QUILLET_CLI) + " compress" + passes + " --output-dir " +
                           quoted(output.parent_path()) + " " + quoted(source) + " >/dev/null")
                              .c_str()),
              0);
    const std::string streams = outputOf(
        "ffprobe -v error -show_entries stream=codec_type,codec_name,channels,sample_rate"
        ":stream_tags=language -of compact=p=0 " +
        quoted(output));
    const std::string subtitles = ending == ".mp4" ? "mov_text" : "subrip";
    // (Matroska keeps no "und" language; an .mp4 names it.)
    const std::string undetermined = ending == ".mp4" ? "|tag:language=und" : "";
    EXPECT_EQ(
        streams,
        "codec_name=hevc|codec_type=video" + undetermined +
            "\n"
            "codec_name=aac|codec_type=audio|sample_rate=48000|channels=6" +
            undetermined +
            "\n"
            "codec_name=aac|codec_type=audio|sample_rate=22050|channels=2|"
            "tag:language=fra\n"
            "codec_name=" +
            subtitles + "|codec_type=subtitle" + undetermined + "\n" +
            (ending == ".mp4" ? "codec_name=bin_data|codec_type=data|tag:language=eng\n" : ""));
    EXPECT_EQ(outputOf("ffprobe -v error -show_entries chapter_tags=title:format_tags=title "
                       "-of compact=p=0 " +
                       quoted(output)),
              "tag:title=One\ntag:title=Two\ntag:title=Everything\n");
    // Not one picture lost or repeated where the frame rate changes.
    EXPECT_EQ(outputOf("ffprobe -v error -count_frames -select_streams v:0 -show_entries "
                       "stream=nb_read_frames -of csv=p=0 " +
                       quoted(output)),
              "90\n");
}

INSTANTIATE_TEST_SUITE_P(OneAndTwoPasses, KeptStreams,
                         ::testing::Combine(::testing::Values(".mp4", ".mkv"), ::testing::Bool()));

}  // namespace
