#include "cli/option_table.h"

#include <algorithm>
#include <vector>

#include "cli/encoder_limits.h"
#include "cli/word_list.h"
#include "tools/exact_number.h"

namespace quillet::cli {

namespace {

std::optional<int> wholeNumber(const std::string& text, int low, int high) {
    const auto value = exactNumber<int>(text);
    return value && *value >= low && *value <= high ? value : std::nullopt;
}

// The largest target size: about a terabyte, far above any video yet small enough that the bit
// rate worked out from it stays a whole number ffmpeg can hold.
constexpr double kMostTargetMb = 1000000;
// The largest rate in bit/s: ffmpeg keeps the buffer size in a 32-bit whole number.
constexpr double kMostBitsPerSecond = 2000e6;

// A number above 0 and at most `most`; "inf" and "nan", which the reading takes as numbers, fail
// the same test.
std::optional<double> positiveNumber(const std::string& text, double most) {
    const auto value = exactNumber<double>(text);
    return value && *value > 0 && *value <= most ? value : std::nullopt;
}

std::string wholeText(double value) {
    return std::to_string(static_cast<long long>(value));
}

// The problems below complete "OPTION takes ...": the reader puts the option's name in front.
std::string wholeInto(int& target, const std::string& text, int low, int high) {
    const auto parsed = wholeNumber(text, low, high);
    if (!parsed) {
        return "a whole number from " + std::to_string(low) + " to " + std::to_string(high) +
               ", not \"" + text + "\"";
    }
    target = *parsed;
    return {};
}

std::string rateInto(std::string& target, const std::string& text) {
    if (!bitsPerSecond(text)) {
        return "a rate from 1 to " + wholeText(kMostBitsPerSecond / 1e6) +
               "M bit/s, such as 900k or 1.5M, not \"" + text + "\"";
    }
    target = text;
    return {};
}

template <typename T, typename V>
std::string assign(T& target, const V& value) {
    target = value;
    return {};
}

using Value = const std::string&;
using enum Command;

// The commands that encode the picture (estimate: samples of it).
constexpr Commands kEncoding = kMethodCommands | commandsOf({Mp3, Scale, Fps});
// Those and tags make outputs. estimate makes none, yet takes a compress command line as it is.
constexpr Commands kOutputs = kEncoding | commandsOf({Tags});
constexpr Commands kEvery = kOutputs | commandsOf({Probe});

constexpr OptionRow kOptions[] = {
    {"--method", Takes::Value, kMethodCommands, std::nullopt,
     [](Options& o, Value v) -> std::string {
         const auto named = std::ranges::find(kMethodNames, v, [](auto& n) { return n.first; });
         if (named == std::end(kMethodNames)) {
             std::vector<std::string> names;
             for (const auto& [name, method] : kMethodNames) names.emplace_back(name);
             return wordList(names, "or") + ", not \"" + v + "\"";
         }
         return assign(o.compress.method, named->second);
     }},
    {"--target-mb", Takes::Value, kMethodCommands, Method::TargetSize,
     [](Options& o, Value v) -> std::string {
         o.compress.targetMb = positiveNumber(v, kMostTargetMb);
         if (o.compress.targetMb) return {};
         return "a size in MB above 0 and up to " + wholeText(kMostTargetMb) + ", not \"" + v +
                "\"";
     }},
    {"--two-pass", Takes::Nothing, kMethodCommands, Method::TargetSize,
     [](Options& o, Value) { return assign(o.compress.twoPass, true); }},
    // mp3 and scale take it too, as a rate factor of their own.
    {"--crf", Takes::Value, kMethodCommands | commandsOf({Mp3, Scale}), Method::Crf,
     [](Options& o, Value v) {
         std::string problem = wholeInto(o.compress.crf, v, 0, 51);
         if (problem.empty()) o.scaleCrf = o.compress.crf;
         return problem;
     }},
    {"--bitrate", Takes::Value, kMethodCommands, Method::Abr,
     [](Options& o, Value v) { return rateInto(o.compress.bitRate, v); }},
    {"--minrate", Takes::Value, kMethodCommands, Method::Abr,
     [](Options& o, Value v) { return rateInto(o.compress.minRate, v); }},
    {"--maxrate", Takes::Value, kMethodCommands, Method::Abr,
     [](Options& o, Value v) { return rateInto(o.compress.maxRate, v); }},
    {"--bufsize", Takes::Value, kMethodCommands, Method::Abr,
     [](Options& o, Value v) { return rateInto(o.compress.bufferSize, v); }},
    {"--qp", Takes::Value, kMethodCommands, Method::Qp,
     [](Options& o, Value v) { return wholeInto(o.compress.qp, v, 0, 51); }},
    {"--lookahead", Takes::Value, kMethodCommands, Method::Qp,
     [](Options& o, Value v) { return wholeInto(o.compress.lookAhead, v, 0, 250); }},
    {"--preset", Takes::Value, kMethodCommands | commandsOf({Mp3, Fps}), std::nullopt,
     [](Options& o, Value v) -> std::string {
         if (x265Preset(v)) return assign(o.preset, v);
         std::vector<std::string> names;
         for (const X265Preset& preset : kX265Presets) names.emplace_back(preset.name);
         return wordList(names, "or") + ", not \"" + v + "\"";
     }},
    {"--audio-bitrate", Takes::Value, kMethodCommands | commandsOf({Scale, Fps}), std::nullopt,
     [](Options& o, Value v) { return wholeInto(o.audioKbps.emplace(), v, 8, 640); }},
    {"--sample-rate", Takes::Value, kMethodCommands | commandsOf({Mp3, Scale, Fps}), std::nullopt,
     // Which rates the job's audio encoder takes is known once the whole line is read.
     [](Options& o, Value v) -> std::string {
         o.sampleRate = exactNumber<int>(v);
         return o.sampleRate ? "" : "a rate in Hz such as 44100, not \"" + v + "\"";
     }},
    {"--quality", Takes::Value, commandsOf({Mp3}), std::nullopt,
     [](Options& o, Value v) { return wholeInto(o.mp3Quality, v, 1, 9); }},
    {"--mp3", Takes::Value, commandsOf({Scale}), std::nullopt,
     [](Options& o, Value v) {
         o.scaleMp3 = true;
         return wholeInto(o.mp3Quality, v, 1, 9);
     }},
    {"--height", Takes::Value, commandsOf({Scale}), std::nullopt,
     [](Options& o, Value v) -> std::string {
         if (std::string problem = wholeInto(o.height, v, 1, 100000); !problem.empty()) {
             return problem;
         }
         const int height = o.height;
         if (height == 240 || height == 360 || height == 480 || height == 720) return {};
         return "240, 360, 480 or 720";
     }},
    {"--fps", Takes::Value, commandsOf({Fps}), std::nullopt,
     [](Options& o, Value v) { return wholeInto(o.fps, v, 1, 1000); }},
    {"--tag", Takes::Values, commandsOf({Tags}), std::nullopt,
     [](Options& o, Value v) -> std::string {
         const std::size_t equals = v.find('=');
         if (equals == 0 || equals == std::string::npos) return "KEY=VALUE, not \"" + v + "\"";
         o.tags.emplace_back(v.substr(0, equals), v.substr(equals + 1));
         return {};
     }},
    {"--output-dir", Takes::Value, kOutputs, std::nullopt,
     [](Options& o, Value v) { return assign(o.outputFolder, v); }},
    {"--overwrite", Takes::Nothing, kOutputs, std::nullopt,
     [](Options& o, Value) { return assign(o.existing, ExistingOutput::Overwrite); }},
    {"--rename", Takes::Nothing, kOutputs, std::nullopt,
     [](Options& o, Value) { return assign(o.existing, ExistingOutput::Rename); }},
    // A copy with new tags is never smaller than its source.
    {"--min-saving", Takes::Value, kEncoding, std::nullopt,
     [](Options& o, Value v) { return wholeInto(o.minSavingPercent, v, 0, 99); }},
    {"--json", Takes::Nothing, kEvery, std::nullopt,
     [](Options& o, Value) { return assign(o.json, true); }},
};

}  // namespace

std::string_view nameOf(Command command) {
    return std::ranges::find(kCommandNames, command, [](auto& n) { return n.second; })->first;
}

std::string_view nameOf(Method method) {
    return std::ranges::find(kMethodNames, method, [](auto& n) { return n.second; })->first;
}

const OptionRow* findOption(std::string_view name) {
    const auto row = std::ranges::find(kOptions, name, &OptionRow::name);
    return row == std::end(kOptions) ? nullptr : row;
}

std::optional<double> bitsPerSecond(const std::string& rate) {
    std::string number = rate;
    double unit = 1;
    if (!number.empty() && (number.back() == 'k' || number.back() == 'M')) {
        unit = number.back() == 'k' ? 1e3 : 1e6;
        number.pop_back();
    }
    const auto value = positiveNumber(number, kMostBitsPerSecond / unit);
    if (!value || *value * unit < 1) return std::nullopt;
    return *value * unit;
}

}  // namespace quillet::cli
