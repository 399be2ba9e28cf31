#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "cli/cli_options.h"
#include "cli/job_arguments.h"
#include "cli/job_progress.h"
#include "cli/output_plan.h"
#include "cli/run_marks.h"
#include "cli/source_facts.h"

namespace quillet::cli {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

Options parsed(const Words& arguments) {
    const Parsed result = parseArguments(arguments);
    EXPECT_TRUE(result.options) << result.error;
    return result.options.value_or(Options{});
}

TEST(CliOptions, BadUsageIsNamedAndHelpIsOffered) {
    const std::pair<Words, std::string> cases[] = {
        {{"shrink", "a.mp4"}, "unknown command \"shrink\""},
        {{"compress"}, "no input given"},
        {{"compress", "--method", "tfs", "a.mp4"}, "--method tfs needs --target-mb"},
        {{"compress", "--crf", "52", "a.mp4"},
         "--crf takes a whole number from 0 to 51, not \"52\""},
        {{"compress", "--min-saving", "100", "a.mp4"},
         "--min-saving takes a whole number from 0 to 99, not \"100\""},
        {{"compress", "--bitrate", "fast", "a.mp4"},
         "--bitrate takes a rate from 1 to 2000M bit/s, such as 900k or 1.5M, not \"fast\""},
        {{"compress", "a.mp4", "--preset"}, "--preset needs a value"},
        {{"scale", "--height", "1080", "a.mp4"}, "--height takes 240, 360, 480 or 720"},
        {{"tags", "--tag", "=x", "a.mp4"}, "--tag takes KEY=VALUE, not \"=x\""},
        {{"fps", "a.mp4"}, "fps needs --fps"},
        {{"compress", "--bogus", "a.mp4"}, "unknown option --bogus"},
    };
    for (const auto& [arguments, error] : cases) EXPECT_EQ(parseArguments(arguments).error, error);
    EXPECT_NE(parseArguments({}).text.find("Examples:"), std::string::npos);
    EXPECT_NE(parseArguments({"probe", "--help"}).text.find("Usage:"), std::string::npos);
    // After "--" a name that starts with "-" is an input.
    EXPECT_EQ(parsed({"compress", "--", "-y.mp4", "--json"}).inputs, (Words{"-y.mp4", "--json"}));
}

// "inf" and "1e20" once reached ffmpeg as a bit rate of -9223372036854775808.
TEST(CliOptions, NumbersNotFiniteOrBeyondWhatFfmpegHoldsAreBadUsage) {
    const std::string target = "--target-mb takes a size in MB above 0 and up to 1000000, not ";
    const std::pair<Words, std::string> refused[] = {
        {{"--target-mb", "inf"}, target + "\"inf\""},
        {{"--target-mb", "nan"}, target + "\"nan\""},
        {{"--target-mb", "1e20"}, target + "\"1e20\""},
        {{"--target-mb", "1000000.5"}, target + "\"1000000.5\""},
        {{"--target-mb", "-3"}, target + "\"-3\""},
        {{"--target-mb", "0"}, target + "\"0\""},
        {{"--bitrate", "inf"}, "--bitrate takes"},
        {{"--bitrate", "nanM"}, "--bitrate takes"},
        {{"--maxrate", "1e20k"}, "--maxrate takes"},
        {{"--bufsize", "2001M"}, "--bufsize takes"},
        {{"--minrate", "0.5"}, "--minrate takes"},
    };
    for (const auto& [option, error] : refused) {
        Words arguments = {"compress", "--method", "tfs", "--target-mb", "50"};
        arguments.insert(arguments.end(), option.begin(), option.end());
        arguments.push_back("a.mp4");
        const Parsed result = parseArguments(arguments);
        EXPECT_FALSE(result.options) << option[1];
        EXPECT_EQ(result.error.substr(0, error.size()), error) << option[1];
    }
    EXPECT_EQ(parsed({"compress", "--target-mb", "1000000", "a.mp4"}).compress.targetMb, 1000000.0);
    EXPECT_EQ(
        parsed({"compress", "--bufsize", "2000M", "--minrate", "1", "a.mp4"}).compress.bufferSize,
        "2000M");
    // What an estimate of an average bit rate reads of it.
    EXPECT_EQ(bitsPerSecond("900k"), 900000.0);
    EXPECT_EQ(bitsPerSecond("1.5M"), 1500000.0);
    EXPECT_FALSE(bitsPerSecond("1.5G"));
}

TEST(JobArguments, EachCommandMirrorsItsWindowAndEndsWithTheOutput) {
    const JobFiles files{"/t/ffmpeg", "/v/a b.mp4", "/v/Compressed-a b.mp4"};
    const SourceFacts facts = parseProbeAnswer(
        "index=0\ncodec_type=video\nwidth=640\nheight=360\npix_fmt=yuv420p\n"
        "index=1\ncodec_type=audio\nchannels=2\nsample_rate=48000\nduration=10\n");
    const Words head = {"/t/ffmpeg", "-hide_banner", "-v", "warning",   "-nostats",
                        "-progress", "pipe:1",       "-i", "/v/a b.mp4"};
    const Words timing = {"-fps_mode", "passthrough"};
    const Words streams = {"-map", "0:V:0", "-map", "0:a:0"};
    const auto withHead = [&](std::initializer_list<Words> parts) {
        Words whole = head;
        for (const Words& part : parts) whole.insert(whole.end(), part.begin(), part.end());
        return whole;
    };
    const auto expect = [&](const Words& arguments, const Words& video, const Words& audio,
                            long long rate = 0) {
        EXPECT_EQ(jobArguments(parsed(arguments), files, facts, rate),
                  withHead({video, timing, streams, audio, {"-y", files.output}}));
    };
    const Words aac = {"-c:a", "aac", "-b:a:0", "160k"};
    expect({"compress", "--method", "tfs", "--target-mb", "50", "x"},
           {"-c:v", "libx265", "-preset", "veryfast", "-b:v", "700000"}, aac, 700000);
    // Two passes: the sound is encoded by the first, measured, and copied by the second.
    const Options tfs = parsed({"compress", "--method", "tfs", "--target-mb", "50", "x"});
    EXPECT_EQ(firstPassArguments(tfs, files, facts, 700000),
              withHead({{"-map", "0:V:0", "-c:v", "libx265", "-preset", "ultrafast", "-b:v",
                         "700000", "-x265-params",
                         "pass=1:stats=passlog:bframes=4:weightp=1:scenecut=40:rc-lookahead=6"},
                        timing,
                        {"-f", "null", "-", "-map", "0:a"},
                        aac,
                        {"-y", "audio.m4a"}}));
    EXPECT_EQ(secondPassArguments(tfs, files, facts, 650000),
              withHead({{"-i", "audio.m4a", "-c:v", "libx265", "-preset", "veryfast", "-b:v",
                         "650000", "-x265-params", "pass=2:stats=passlog"},
                        timing,
                        {"-map", "0:V:0", "-map", "1:a:0", "-c:a", "copy", "-y", files.output}}));
    expect({"compress", "--crf", "24", "--preset", "slow", "--overwrite", "x"},
           {"-c:v", "libx265", "-crf", "24", "-preset", "slow"}, aac);
    expect({"compress", "--method", "abr", "--bitrate", "1.5M", "--sample-rate", "48000", "x"},
           {"-c:v", "libx265", "-preset", "veryfast", "-b:v", "1.5M", "-minrate", "1.1M",
            "-maxrate", "2.0M", "-bufsize", "1.1M"},
           {"-c:a", "aac", "-b:a:0", "160k", "-ar", "48000"});
    expect({"compress", "--method", "qp", "--qp", "30", "--lookahead", "10", "x"},
           {"-c:v", "libx265", "-x265-params", "qp=30:rc-lookahead=10", "-preset", "veryfast"},
           aac);
    expect({"mp3", "--quality", "2", "x"}, {"-c:v", "libx265", "-crf", "20", "-preset", "veryfast"},
           {"-c:a", "libmp3lame", "-qscale:a", "2"});
    expect({"scale", "--height", "720", "--crf", "30", "--mp3", "7", "x"},
           {"-c:v", "libx265", "-crf", "30", "-vf", "scale=1280:720,setsar=1:1"},
           {"-c:a", "libmp3lame", "-qscale:a", "7"});
    expect({"fps", "--fps", "24", "x"}, {"-c:v", "libx265", "-preset", "veryfast", "-vf", "fps=24"},
           aac);
    EXPECT_EQ(jobArguments(parsed({"tags", "--tag", "title=A \"b\" c", "--tag", "year=2026", "x"}),
                           files, facts),
              withHead({{"-map", "0", "-c", "copy", "-metadata", "title=A \"b\" c", "-metadata",
                         "year=2026", "-y", files.output}}));
}

// A rate is spent per picture at the frame rate libx265 is told: the source's average one.
TEST(JobArguments, ARateIsKeptAtTheSourcesAverageFrameRate) {
    const JobFiles files{"/t/ffmpeg", "/v/a.mp4", "/v/Compressed-a.mp4"};
    const SourceFacts changing =
        parseProbeAnswer("index=0\ncodec_type=video\navg_frame_rate=45/2\nduration=40\n");
    const auto has = [](const Words& words, const std::string& word) {
        return std::find(words.begin(), words.end(), word) != words.end();
    };
    EXPECT_TRUE(has(jobArguments(parsed({"compress", "--method", "abr", "x"}), files, changing),
                    "fps=45/2"));
    const Options tfs = parsed({"compress", "--target-mb", "5", "--two-pass", "x"});
    EXPECT_TRUE(has(jobArguments(tfs, files, changing, 900000), "fps=45/2"));
    EXPECT_TRUE(
        has(secondPassArguments(tfs, files, changing, 900000), "pass=2:stats=passlog:fps=45/2"));
    // A rate factor has no rate to keep; an unknown frame rate is not told.
    EXPECT_FALSE(has(jobArguments(parsed({"compress", "x"}), files, changing), "-x265-params"));
    EXPECT_FALSE(has(jobArguments(tfs, files,
                                  parseProbeAnswer("index=0\ncodec_type=video\n"
                                                   "avg_frame_rate=0/0\n"),
                                  900000),
                     "-x265-params"));
}

TEST(OutputPlan, ExistingOutputsAreSkippedReplacedOrRenamedAndTheSourceIsNeverWritten) {
    const fs::path folder = fs::temp_directory_path() / "quillet-cli-plan";
    fs::remove_all(folder);
    fs::create_directories(folder / "out");
    const fs::path source = folder / "clip é.mp4";
    std::ofstream(source) << "x";
    EXPECT_EQ(planOutput(source, "", ExistingOutput::Skip).output,
              folder / "Compressed-clip é.mp4");
    std::ofstream(folder / "Compressed-clip é.mp4") << "y";
    std::ofstream(folder / "Compressed-clip é (2).mp4") << "y";
    EXPECT_EQ(planOutput(source, "", ExistingOutput::Skip).action, OutputPlan::Action::Skip);
    EXPECT_EQ(planOutput(source, "", ExistingOutput::Overwrite).action, OutputPlan::Action::Write);
    EXPECT_EQ(planOutput(source, "", ExistingOutput::Rename).output,
              folder / "Compressed-clip é (3).mp4");
    // An output folder whose output is the source under another name.
    fs::create_hard_link(source, folder / "out" / "Compressed-clip é.mp4");
    EXPECT_EQ(planOutput(source, (folder / "out").string(), ExistingOutput::Overwrite).action,
              OutputPlan::Action::Refuse);
    EXPECT_EQ(partialOutput(folder / "Compressed-clip é.mp4"),
              folder / ("Compressed-clip é.quillet-partial" + runMark() + ".mp4"));
    std::vector<std::string> problems;
    EXPECT_EQ(sourcesOf({(folder / "out").string(), (folder / "none.mp4").string()}, problems),
              std::vector<fs::path>{folder / "out" / "Compressed-clip é.mp4"});
    EXPECT_EQ(problems.size(), 1u);
    fs::remove_all(folder);
}

TEST(JobProgress, ProgressLinesGiveTheLineTheJsonAndTheEstimate) {
    Progress progress;
    for (const char* line : {"frame=50", "out_time_us=5000000", "total_size=1048576", "speed=2.5x",
                             "bitrate= 12.0kbits/s"}) {
        EXPECT_FALSE(readProgressLine(line, progress)) << line;
    }
    EXPECT_TRUE(readProgressLine("progress=continue\r", progress));
    EXPECT_FALSE(progress.ended);
    const JobView job{
        .name = "a \"b\".mp4", .runningSeconds = 20.0, .progress = progress, .source = "/v/a.mp4"};
    EXPECT_EQ(terminalLine(job, 80),
              "a \"b\".mp4  25.0%  0:00:05  2.50x  1.0 MB  left 0:00:06  about 4.0 MB");
    EXPECT_EQ(jsonUpdate(job),
              R"({"event":"progress","source":"/v/a.mp4","index":1,"count":1,"pass":null,)"
              R"("try":null,"encoded_seconds":5.000,"bytes_written":1048576,"percent":25.00,)"
              R"("speed":2.500,"seconds_left":6.0,)"
              R"("projected_bytes":4194304})");
    EXPECT_EQ(jsonString("line\nbreak\\"), R"("line\u000abreak\\")");
}

TEST(JobProgress, JsonStringsAreValidUtf8WhateverBytesTheNameHolds) {
    const std::pair<std::string, std::string> cases[] = {
        {"plain.mp4", R"("plain.mp4")"},
        {"a \"b\" c\\d", R"("a \"b\" c\\d")"},
        {std::string("\t\n\r\x01\x1f\0end", 9), R"("\u0009\u000a\u000d\u0001\u001f\u0000end")"},
        // Valid UTF-8 of every length passes as it is, up to the last code point.
        {"caf\xc3\xa9 \xe8\xa6\x96\xe9\xa0\xbb \xf0\x9f\x8e\xac \xf4\x8f\xbf\xbf",
         "\"caf\xc3\xa9 \xe8\xa6\x96\xe9\xa0\xbb \xf0\x9f\x8e\xac \xf4\x8f\xbf\xbf\""},
        // A Latin-1 name, stray continuation bytes and bytes that never start anything.
        {"caf\xe9.mp4", R"("caf\udce9.mp4")"},
        {"\x80\xbf\xfe\xff", R"("\udc80\udcbf\udcfe\udcff")"},
        // Sequences cut short, at the end and before other text.
        {"\xe8\xa6", R"("\udce8\udca6")"},
        {"\xf0\x9f\x8e.mp4", R"("\udcf0\udc9f\udc8e.mp4")"},
        {"\xc3\"", R"("\udcc3\"")"},
        {"\xe8\xa6\xe8\xa6\x96", "\"\\udce8\\udca6\xe8\xa6\x96\""},
        // Overlong forms, an encoded surrogate and a code point past U+10FFFF.
        {"\xc0\xaf\xc1\xbf", R"("\udcc0\udcaf\udcc1\udcbf")"},
        {"\xe0\x80\xaf", R"("\udce0\udc80\udcaf")"},
        {"\xf0\x82\x82\xac", R"("\udcf0\udc82\udc82\udcac")"},
        {"\xed\xb3\xa9", R"("\udced\udcb3\udca9")"},
        {"\xf4\x90\x80\x80", R"("\udcf4\udc90\udc80\udc80")"},
    };
    for (const auto& [text, json] : cases) EXPECT_EQ(jsonString(text), json) << json;
}

TEST(JobProgress, ASpeedOrRunningTimeThatIsNoFiniteNumberIsNullOrLeftOut) {
    for (const char* speed : {"speed=nan", "speed=nanx", "speed= infx", "speed=-inf", "speed=inf",
                              "speed=N/A", "speed=-1.5x"}) {
        Progress progress;
        for (const char* line : {"out_time_us=5000000", "total_size=1048576", "speed=2.5x", speed,
                                 "progress=continue"}) {
            readProgressLine(line, progress);
        }
        const JobView job{"a.mp4", 20.0, progress};
        EXPECT_EQ(jsonUpdate(job),
                  R"({"event":"progress","source":"","index":1,"count":1,"pass":null,)"
                  R"("try":null,"encoded_seconds":5.000,)"
                  R"("bytes_written":1048576,"percent":25.00,"speed":null})")
            << speed;
        EXPECT_EQ(terminalLine(job, 80), "a.mp4  25.0%  0:00:05  1.0 MB") << speed;
    }
    // A running time that is no number gives no share, rather than a share of "nan".
    Progress progress;
    readProgressLine("out_time_us=5000000", progress);
    EXPECT_EQ(jsonUpdate({"a.mp4", std::nan(""), progress}),
              R"({"event":"progress","source":"","index":1,"count":1,"pass":null,"try":null,)"
              R"("encoded_seconds":5.000,"bytes_written":0,"speed":null})");
}

TEST(SourceFacts, ProbeAnswerAndTheTargetThatTheAudioAloneExceeds) {
    const SourceFacts facts = parseProbeAnswer(
        "index=0\r\ncodec_name=h264\r\ncodec_type=video\r\nwidth=1920\r\nheight=1080\r\n"
        "pix_fmt=yuv420p\r\nDISPOSITION:attached_pic=0\r\n"
        "index=1\ncodec_name=aac\ncodec_type=audio\nsample_rate=48000\nchannels=6\n"
        "index=2\ncodec_name=mjpeg\ncodec_type=video\nwidth=600\nheight=600\n"
        "DISPOSITION:attached_pic=1\nduration=65.5\n");
    EXPECT_EQ(describeFacts(facts),
              "running time 0:01:05, picture 1920 x 1080, streams: video h264 yuv420p, audio aac "
              "6 channels 48000 Hz, video mjpeg cover picture");
    // The same for scripts, as fields of probe's JSON.
    EXPECT_EQ(factFields(facts),
              R"(,"running_seconds":65.500,"width":1920,"height":1080,"streams":[)"
              R"({"type":"video","codec":"h264","width":1920,"height":1080,)"
              R"("pixel_format":"yuv420p","cover_picture":false},)"
              R"({"type":"audio","codec":"aac","channels":6,"sample_rate":48000},)"
              R"({"type":"video","codec":"mjpeg","width":600,"height":600,"pixel_format":"",)"
              R"("cover_picture":true}])");
    EXPECT_EQ(factFields(parseProbeAnswer("")),
              R"(,"running_seconds":null,"width":null,"height":null,"streams":[])");
    EXPECT_FALSE(parseProbeAnswer("duration=N/A\n").seconds);
    // 10 MB over 100 s leaves 0.99 x 838,861 bit/s beside 160 kbit/s of audio for the picture.
    const double audio = audioBitsAt(160, 100);
    EXPECT_EQ(targetRate(10, 100, audio).videoBitsPerSecond, 670472);
    EXPECT_EQ(targetRate(10, 100, 0).videoBitsPerSecond, 830472);
    EXPECT_EQ(targetRate(1, 100, audio).refusal,
              "a target of 1.00 MB is too small: the audio with the least video needs 2.12 MB");
    // The largest target over a clip of a microsecond asks for no more than the encoder can use.
    EXPECT_EQ(targetRate(1e6, 1e-6, 0).videoBitsPerSecond, 2'000'000'000);
}

}  // namespace
}  // namespace quillet::cli
