#include "cli/kept_streams.h"

#include <gtest/gtest.h>

namespace quillet::cli {
namespace {

using Words = std::vector<std::string>;

// A source with a bit of everything: a cover picture after the picture, 5.1 and mono sound,
// four kinds of subtitles, a font, a time code and an .mp4's chapter names.
SourceFacts everything() {
    return parseProbeAnswer(
        "index=0\ncodec_name=h264\ncodec_type=video\nwidth=1280\nheight=720\npix_fmt=yuv420p\n"
        "index=1\ncodec_name=mjpeg\ncodec_type=video\nDISPOSITION:attached_pic=1\n"
        "index=2\ncodec_name=ac3\ncodec_type=audio\nchannels=6\nsample_rate=48000\n"
        "index=3\ncodec_name=mp3\ncodec_type=audio\nchannels=1\nsample_rate=22050\n"
        "index=4\ncodec_name=subrip\ncodec_type=subtitle\n"
        "index=5\ncodec_name=mov_text\ncodec_type=subtitle\n"
        "index=6\ncodec_name=hdmv_pgs_subtitle\ncodec_type=subtitle\n"
        "index=7\ncodec_name=ass\ncodec_type=subtitle\n"
        "index=8\ncodec_name=ttf\ncodec_type=attachment\n"
        "index=9\ncodec_name=tmcd\ncodec_type=data\n"
        "index=10\ncodec_name=bin_data\ncodec_type=data\nduration=60\n");
}

Options compress(Words extra = {}) {
    extra.insert(extra.begin(), "compress");
    extra.push_back("x.mp4");
    return parseArguments(extra).options.value_or(Options{});
}

TEST(KeptStreams, EachContainerKeepsTheSoundAndTheSubtitlesItCanHold) {
    const SourceFacts source = everything();
    const Words sound = {"-map", "0:V:0", "-map", "0:a:0", "-map", "0:a:1"};
    const auto withSound = [&](const Words& rest) {
        Words whole = sound;
        whole.insert(whole.end(), rest.begin(), rest.end());
        return whole;
    };
    // Each track's rate grows with its channels: 5.1 takes three times a stereo track's.
    const Words aac = {"-c:a", "aac", "-b:a:0", "480k", "-b:a:1", "80k"};
    const auto join = [](Words a, const Words& b) {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    };
    // An .mp4 holds text subtitles as its own text; picture subtitles and fonts it cannot hold.
    EXPECT_EQ(keptStreamArguments(compress(), source, ".mp4", SoundCodec::Aac),
              withSound(join(
                  {"-map", "0:s:0", "-map", "0:s:1", "-map", "0:s:3"},
                  join(aac, {"-c:s:0", "mov_text", "-c:s:1", "mov_text", "-c:s:2", "mov_text"}))));
    // Matroska holds them all, the .mp4's text turned into SubRip, and the fonts.
    EXPECT_EQ(keptStreamArguments(compress(), source, ".MKV", SoundCodec::Aac),
              withSound(join({"-map", "0:s:0", "-map", "0:s:1", "-map", "0:s:2", "-map", "0:s:3",
                              "-map", "0:t"},
                             join(aac, {"-c:s:0", "copy", "-c:s:1", "srt", "-c:s:2", "copy",
                                        "-c:s:3", "copy", "-c:t", "copy"}))));
    // Sound measured by a first pass is copied from its own file, input 1.
    EXPECT_EQ(keptStreamArguments(compress(), source, ".avi", SoundCodec::Copy, 1),
              (Words{"-map", "0:V:0", "-map", "1:a:0", "-map", "1:a:1", "-c:a", "copy"}));
    // A rate or sample rate asked for is every track's.
    EXPECT_EQ(keptStreamArguments(compress({"--audio-bitrate", "96", "--sample-rate", "44100"}),
                                  source, ".avi", SoundCodec::Aac),
              withSound({"-c:a", "aac", "-b:a:0", "96k", "-b:a:1", "96k", "-ar", "44100"}));
    EXPECT_EQ(soundKbps(compress(), source), 560);
    EXPECT_EQ(soundKbps(compress(), parseProbeAnswer("index=0\ncodec_type=video\n")), 0);

    // What is not kept is said, and only that: the chapter names come back in a new .mp4.
    EXPECT_EQ(
        keepingNotes(compress(), source, ".mp4"),
        (Words{"cover picture left out", "subtitle hdmv_pgs_subtitle left out: .mp4 cannot hold it",
               "attachment left out: .mp4 cannot hold it", "data tmcd left out"}));
    EXPECT_EQ(keepingNotes(compress(), source, ".mkv"),
              (Words{"cover picture left out", "data tmcd left out"}));
    // MP3 holds two channels: a 5.1 track is made stereo, and said so.
    const Options mp3 = parseArguments({"mp3", "x.mp4"}).options.value();
    EXPECT_EQ(keepingNotes(mp3, source, ".mkv"),
              (Words{"cover picture left out", "audio ac3 made stereo: MP3 holds two channels",
                     "data tmcd left out"}));
}

TEST(KeptStreams, APictureIsMadeOnePlayersShowAndKeepsItsTiming) {
    const auto picture = [](const std::string& format, int width, int height) {
        return parseProbeAnswer("index=0\ncodec_type=video\nwidth=" + std::to_string(width) +
                                "\nheight=" + std::to_string(height) + "\npix_fmt=" + format +
                                "\n");
    };
    const Words timing = {"-fps_mode", "passthrough"};
    EXPECT_EQ(pictureArguments(compress(), picture("yuv420p10le", 1920, 1080)), timing);
    EXPECT_EQ(pictureArguments(compress(), picture("yuv444p", 640, 360)),
              (Words{"-pix_fmt", "yuv420p", "-fps_mode", "passthrough"}));
    EXPECT_EQ(pictureArguments(compress(), picture("yuv422p10le", 640, 360)),
              (Words{"-pix_fmt", "yuv420p10le", "-fps_mode", "passthrough"}));
    // An odd size loses its last column and row, after the job's own filters.
    const SourceFacts odd = picture("yuvj420p", 321, 241);
    EXPECT_EQ(
        pictureArguments(compress(), odd, {"fps=24"}),
        (Words{"-vf", "fps=24,crop=trunc(iw/2)*2:trunc(ih/2)*2:0:0", "-fps_mode", "passthrough"}));
    EXPECT_EQ(keepingNotes(compress(), odd, ".mp4"),
              Words{"picture cropped to 320 x 240: 4:2:0 needs even sizes"});
    // The scale tool's sizes are even already.
    const Options scale = parseArguments({"scale", "--height", "360", "x.mp4"}).options.value();
    EXPECT_EQ(pictureArguments(scale, odd, {"scale=640:360"}),
              (Words{"-vf", "scale=640:360", "-fps_mode", "passthrough"}));
    EXPECT_TRUE(keepingNotes(scale, odd, ".mp4").empty());
}

}  // namespace
}  // namespace quillet::cli
