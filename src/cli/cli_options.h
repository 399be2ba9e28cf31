#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/default_settings.h"

namespace quillet::cli {

// What the companion is asked to do: one job per input, of one kind.
enum class Command { Compress, Estimate, Mp3, Scale, Fps, Tags, Probe };
enum class Method { TargetSize, Crf, Abr, Qp };
// What happens when the output of a job exists already.
enum class ExistingOutput { Skip, Overwrite, Rename };

struct CompressSettings {
    Method method = Method::Crf;
    std::optional<double> targetMb;  // MB of 1,048,576 bytes; needed by the target-size method
    bool twoPass = false;
    int crf = defaults::numberOf(defaults::kCrf);
    std::string bitRate = std::string(defaults::kStartup.averageRate) + defaults::kAverageRateUnit;
    std::string minRate = std::string(defaults::kMinRate) + defaults::kRateUnit;
    std::string maxRate = std::string(defaults::kMaxRate) + defaults::kRateUnit;
    std::string bufferSize = std::string(defaults::kStartup.bufferSize) + defaults::kRateUnit;
    int qp = defaults::numberOf(defaults::kStartup.qp);
    int lookAhead = defaults::numberOf(defaults::kLookAhead);
};

// The audio rate of a stereo track when none is asked for, in kbit/s.
inline constexpr int kStereoKbps = defaults::numberOf(defaults::kStartup.audioBitRate);

struct Options {
    Command command = Command::Compress;
    CompressSettings compress;
    std::string preset = defaults::kStartup.preset;
    std::optional<int> audioKbps;            // every audio track's; unset: grows with its channels
    std::optional<int> sampleRate;           // unset: each audio track keeps its own
    int mp3Quality = defaults::kMp3Quality;  // mp3, and scale when given
    std::optional<int> scaleCrf;             // scale: a rate factor of its own
    bool scaleMp3 = false;                   // scale: the audio to MP3 too
    int height = 480;                        // scale: 240, 360, 480 or 720
    int fps = 0;                             // fps: the new rate, required
    std::vector<std::pair<std::string, std::string>> tags;  // tags: key and value, in order
    std::string outputFolder;                               // empty: beside each source
    ExistingOutput existing = ExistingOutput::Skip;
    int minSavingPercent = 0;  // an output not this much smaller than its source is not kept
    bool json = false;
    std::vector<std::string> inputs;  // files or folders
};

// The outcome of reading the command line: options to run, a text to print (the help or the
// version), or a usage error to report (exit status 2).
struct Parsed {
    std::optional<Options> options;
    std::string text;
    std::string error;
};

// Reads the arguments after the program name.
Parsed parseArguments(const std::vector<std::string>& arguments);

// Bits per second of a rate as ffmpeg takes it ("900k", "1.5M", "64000"), from 1 bit/s up to
// 2000M; none for anything else.
std::optional<double> bitsPerSecond(const std::string& rate);

// The help text, with examples.
std::string helpText();
// "quillet-cli 2.0" and a line break, the version being the project's.
std::string versionText();

}  // namespace quillet::cli
