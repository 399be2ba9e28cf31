#include "cli/job_arguments.h"

#include <cstdio>
#include <initializer_list>
#include <string_view>

#include "cli/encoder_limits.h"
#include "cli/kept_streams.h"

namespace quillet::cli {

namespace {

using Words = std::vector<std::string>;

void add(Words& words, std::initializer_list<std::string> more) {
    words.insert(words.end(), more);
}

// Seconds as ffmpeg reads a time, to the millisecond.
std::string fixedSeconds(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", seconds);
    return text;
}

void add(Words& words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
}

// The ending of the output's name, which tells ffmpeg the container.
std::string endingOf(const std::string& output) {
    const std::size_t dot = output.find_last_of('.');
    const std::size_t folder = output.find_last_of("/\\");
    return dot == std::string::npos || (folder != std::string::npos && dot < folder)
               ? std::string()
               : output.substr(dot);
}

std::string scaleFilter(int height) {
    const int width = height == 240 ? 426 : height == 360 ? 640 : height == 480 ? 854 : 1280;
    return "scale=" + std::to_string(width) + ":" + std::to_string(height) + ",setsar=1:1";
}

// The head of every run: warnings and errors only, so that the last lines of a failed run say
// why, and the progress as key=value lines.
Words runHead(const JobFiles& files) {
    return {files.ffmpeg, "-hide_banner", "-v", "warning",   "-nostats",
            "-progress",  "pipe:1",       "-i", files.source};
}

// The output, the job's own file being written: an old one is always replaced.
void output(Words& words, const JobFiles& files) {
    add(words, {"-y", files.output});
}

// libx265's `parameters` for a rate it is to keep to. It spends a rate per picture at the frame
// rate it is told, which for a source whose rate changes is not the average one (the pictures'
// own times are kept): it is told the average, so that the bits per second come out as asked.
void rateParameters(Words& words, const SourceFacts& facts, std::string parameters) {
    const StreamFacts* picture = facts.picture();
    if (picture && !picture->averageFrameRate.empty()) {
        parameters += (parameters.empty() ? "fps=" : ":fps=") + picture->averageFrameRate;
    }
    if (!parameters.empty()) add(words, {"-x265-params", parameters});
}

void targetSizeVideo(Words& words, const Options& options, const SourceFacts& facts,
                     long long videoBitsPerSecond, const std::string& parameters = {}) {
    add(words,
        {"-c:v", "libx265", "-preset", options.preset, "-b:v", std::to_string(videoBitsPerSecond)});
    rateParameters(words, facts, parameters);
}

std::string passStatistics(int pass) {
    return "pass=" + std::to_string(pass) + ":stats=" + std::string(kPassStatistics);
}

// The first pass only measures the picture, so it runs at the fastest preset with the job's
// preset's group shape, which costs a third to a half of an encode.
void firstPassVideo(Words& words, const Options& options, const SourceFacts& facts,
                    long long videoBitsPerSecond) {
    std::string parameters = passStatistics(1);
    std::string preset = options.preset;
    if (const X265Preset* shape = x265Preset(options.preset)) {
        preset = "ultrafast";
        parameters += ":bframes=" + std::to_string(shape->bFrames) +
                      ":weightp=" + (shape->weightedPrediction ? "1" : "0") +
                      ":scenecut=" + std::to_string(shape->sceneCut) +
                      // libx265 wants a look-ahead deeper than the longest run of B-frames
                      ":rc-lookahead=" + std::to_string(shape->bFrames + 2);
    }
    add(words, {"-c:v", "libx265", "-preset", preset, "-b:v", std::to_string(videoBitsPerSecond)});
    rateParameters(words, facts, parameters);
}

// The picture at the rate factor asked for: the CRF method's and the MP3 tool's.
void crfVideo(Words& words, const Options& options) {
    add(words, {"-c:v", "libx265", "-crf", std::to_string(options.compress.crf), "-preset",
                options.preset});
}

void compressVideo(Words& words, const Options& options, const SourceFacts& facts,
                   long long videoBitsPerSecond) {
    const CompressSettings& compress = options.compress;
    switch (compress.method) {
        case Method::TargetSize:
            targetSizeVideo(words, options, facts, videoBitsPerSecond);
            break;
        case Method::Crf:
            crfVideo(words, options);
            break;
        case Method::Abr:
            add(words,
                {"-c:v", "libx265", "-preset", options.preset, "-b:v", compress.bitRate, "-minrate",
                 compress.minRate, "-maxrate", compress.maxRate, "-bufsize", compress.bufferSize});
            rateParameters(words, facts, {});
            break;
        case Method::Qp:
            add(words, {"-c:v", "libx265", "-x265-params",
                        "qp=" + std::to_string(compress.qp) +
                            ":rc-lookahead=" + std::to_string(compress.lookAhead),
                        "-preset", options.preset});
            break;
    }
}

}  // namespace

Words jobArguments(const Options& options, const JobFiles& files, const SourceFacts& facts,
                   long long videoBitsPerSecond) {
    Words words = runHead(files);
    const std::string ending = endingOf(files.output);
    switch (options.command) {
        case Command::Compress:
        case Command::Estimate:
            compressVideo(words, options, facts, videoBitsPerSecond);
            add(words, pictureArguments(options, facts));
            add(words, keptStreamArguments(options, facts, ending, SoundCodec::Aac));
            break;
        case Command::Mp3:
            crfVideo(words, options);
            add(words, pictureArguments(options, facts));
            add(words, keptStreamArguments(options, facts, ending, SoundCodec::Mp3));
            break;
        case Command::Scale:
            add(words, {"-c:v", "libx265"});
            if (options.scaleCrf) add(words, {"-crf", std::to_string(*options.scaleCrf)});
            add(words, pictureArguments(options, facts, {scaleFilter(options.height)}));
            add(words, keptStreamArguments(options, facts, ending,
                                           options.scaleMp3 ? SoundCodec::Mp3 : SoundCodec::Aac));
            break;
        case Command::Fps:
            add(words, {"-c:v", "libx265", "-preset", options.preset});
            add(words, pictureArguments(options, facts, {"fps=" + std::to_string(options.fps)}));
            add(words, keptStreamArguments(options, facts, ending, SoundCodec::Aac));
            break;
        case Command::Tags:
            add(words, {"-map", "0", "-c", "copy"});
            for (const auto& [key, value] : options.tags) {
                add(words, {"-metadata", key + "=" + value});
            }
            break;
        case Command::Probe:
            break;
    }
    output(words, files);
    return words;
}

Words firstPassArguments(const Options& options, const JobFiles& files, const SourceFacts& facts,
                         long long videoBitsPerSecond) {
    Words words = runHead(files);
    add(words, {"-map", "0:V:0"});
    firstPassVideo(words, options, facts, videoBitsPerSecond);
    add(words, pictureArguments(options, facts));
    add(words, {"-f", "null", "-"});
    if (facts.hasAudio()) {
        add(words, soundArguments(options, facts));
        add(words, {"-y", kPassAudio});
    }
    return words;
}

Words secondPassArguments(const Options& options, const JobFiles& files, const SourceFacts& facts,
                          long long videoBitsPerSecond) {
    Words words = runHead(files);
    const bool soundMeasured = facts.hasAudio();
    if (soundMeasured) add(words, {"-i", kPassAudio});
    targetSizeVideo(words, options, facts, videoBitsPerSecond, passStatistics(2));
    add(words, pictureArguments(options, facts));
    add(words, keptStreamArguments(options, facts, endingOf(files.output),
                                   soundMeasured ? SoundCodec::Copy : SoundCodec::Aac,
                                   soundMeasured ? 1 : 0));
    output(words, files);
    return words;
}

double heldPictures(const Options& options) {
    const X265Preset* preset = x265Preset(options.preset);
    if (!preset) return 0;
    const bool ownLookahead = options.compress.method == Method::Qp;
    return heldPictures(*preset, ownLookahead ? options.compress.lookAhead : preset->lookahead);
}

Words sampleArguments(const Options& options, const JobFiles& files, const SourceFacts& facts,
                      double start, double length, long long videoBitsPerSecond) {
    // Seeking before the input decodes only from the key picture before the sample.
    Words words = {files.ffmpeg, "-hide_banner", "-v",  "warning",          "-nostats",
                   "-progress",  "pipe:1",       "-ss", fixedSeconds(start)};
    // A length of 0: a single picture.
    if (length > 0) add(words, {"-t", fixedSeconds(length)});
    add(words, {"-i", files.source, "-map", "0:V:0"});
    if (length <= 0) add(words, {"-frames:v", "1"});
    compressVideo(words, options, facts, videoBitsPerSecond);
    add(words, pictureArguments(options, facts));
    add(words, {"-an", "-f", "hevc", "-y", files.output});
    return words;
}

Words packetArguments(const std::string& ffprobe, const std::string& source) {
    return {ffprobe,
            "-v",
            "error",
            "-select_streams",
            "V:0",
            "-show_entries",
            "packet=pts_time,dts_time,size,flags",
            "-of",
            "default=noprint_wrappers=1",
            source};
}

Words probeArguments(const std::string& ffprobe, const std::string& source) {
    return {ffprobe,
            "-v",
            "error",
            "-show_entries",
            "format=duration:stream=index,codec_type,codec_name,width,height,pix_fmt,"
            "avg_frame_rate,channels,sample_rate:stream_disposition=attached_pic",
            "-of",
            "default=noprint_wrappers=1",
            source};
}

}  // namespace quillet::cli
