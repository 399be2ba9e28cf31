#include "cli/cli_options.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "tools/exact_number.h"

namespace quillet::cli {

namespace {

const std::map<std::string, Command, std::less<>> kCommands = {
    {"compress", Command::Compress}, {"mp3", Command::Mp3},   {"scale", Command::Scale},
    {"fps", Command::Fps},           {"tags", Command::Tags}, {"probe", Command::Probe},
    {"estimate", Command::Estimate},
};

const std::map<std::string, Method, std::less<>> kMethods = {
    {"tfs", Method::TargetSize}, {"crf", Method::Crf}, {"abr", Method::Abr}, {"qp", Method::Qp}};

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

// A rate as ffmpeg takes it: a number with an optional "k" or "M", from 1 bit/s up to the most.
bool isRate(const std::string& text) {
    return bitsPerSecond(text).has_value();
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
    if (!isRate(text)) {
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

// One option: its name, whether a value follows it, and what it does with the options (given the
// value, or an empty text); gives the problem, empty when there is none.
struct OptionRow {
    std::string_view name;
    bool takesValue;
    std::string (*apply)(Options& options, Value value);
};

constexpr OptionRow kOptions[] = {
    {"--method", true,
     [](Options& o, Value v) -> std::string {
         const auto method = kMethods.find(v);
         if (method == kMethods.end()) return "tfs, crf, abr or qp, not \"" + v + "\"";
         return assign(o.compress.method, method->second);
     }},
    {"--target-mb", true,
     [](Options& o, Value v) -> std::string {
         o.compress.targetMb = positiveNumber(v, kMostTargetMb);
         if (o.compress.targetMb) return {};
         return "a size in MB above 0 and up to " + wholeText(kMostTargetMb) + ", not \"" + v +
                "\"";
     }},
    {"--two-pass", false, [](Options& o, Value) { return assign(o.compress.twoPass, true); }},
    {"--crf", true,
     [](Options& o, Value v) {
         std::string problem = wholeInto(o.compress.crf, v, 0, 51);
         if (problem.empty()) o.scaleCrf = o.compress.crf;
         return problem;
     }},
    {"--bitrate", true, [](Options& o, Value v) { return rateInto(o.compress.bitRate, v); }},
    {"--minrate", true, [](Options& o, Value v) { return rateInto(o.compress.minRate, v); }},
    {"--maxrate", true, [](Options& o, Value v) { return rateInto(o.compress.maxRate, v); }},
    {"--bufsize", true, [](Options& o, Value v) { return rateInto(o.compress.bufferSize, v); }},
    {"--qp", true, [](Options& o, Value v) { return wholeInto(o.compress.qp, v, 0, 51); }},
    {"--lookahead", true,
     [](Options& o, Value v) { return wholeInto(o.compress.lookAhead, v, 0, 250); }},
    {"--preset", true, [](Options& o, Value v) { return assign(o.preset, v); }},
    {"--audio-bitrate", true,
     [](Options& o, Value v) { return wholeInto(o.audioKbps.emplace(), v, 8, 640); }},
    {"--sample-rate", true,
     [](Options& o, Value v) { return wholeInto(o.sampleRate.emplace(), v, 8000, 384000); }},
    {"--quality", true, [](Options& o, Value v) { return wholeInto(o.mp3Quality, v, 1, 9); }},
    {"--mp3", true,
     [](Options& o, Value v) {
         o.scaleMp3 = true;
         return wholeInto(o.mp3Quality, v, 1, 9);
     }},
    {"--height", true,
     [](Options& o, Value v) -> std::string {
         if (std::string problem = wholeInto(o.height, v, 1, 100000); !problem.empty()) {
             return problem;
         }
         const int height = o.height;
         if (height == 240 || height == 360 || height == 480 || height == 720) return {};
         return "240, 360, 480 or 720";
     }},
    {"--fps", true, [](Options& o, Value v) { return wholeInto(o.fps, v, 1, 1000); }},
    {"--tag", true,
     [](Options& o, Value v) -> std::string {
         const std::size_t equals = v.find('=');
         if (equals == 0 || equals == std::string::npos) return "KEY=VALUE, not \"" + v + "\"";
         o.tags.emplace_back(v.substr(0, equals), v.substr(equals + 1));
         return {};
     }},
    {"--output-dir", true, [](Options& o, Value v) { return assign(o.outputFolder, v); }},
    {"--overwrite", false,
     [](Options& o, Value) { return assign(o.existing, ExistingOutput::Overwrite); }},
    {"--rename", false,
     [](Options& o, Value) { return assign(o.existing, ExistingOutput::Rename); }},
    {"--json", false, [](Options& o, Value) { return assign(o.json, true); }},
    {"--min-saving", true,
     [](Options& o, Value v) { return wholeInto(o.minSavingPercent, v, 0, 99); }},
};

class Reader {
public:
    explicit Reader(const std::vector<std::string>& arguments) : arguments_(arguments) {}

    Parsed read() {
        if (arguments_.empty() || arguments_[0] == "--help" || arguments_[0] == "-h") {
            return {std::nullopt, helpText(), {}};
        }
        const auto command = kCommands.find(arguments_[0]);
        if (command == kCommands.end()) return fail("unknown command \"" + arguments_[0] + "\"");
        options_.command = command->second;
        bool onlyInputs = false;
        for (index_ = 1; index_ < arguments_.size(); ++index_) {
            const std::string& word = arguments_[index_];
            if (onlyInputs || word.empty() || word[0] != '-' || word == "-") {
                options_.inputs.push_back(word);
            } else if (word == "--") {
                onlyInputs = true;  // what follows are inputs, even names that start with "-"
            } else if (word == "--help" || word == "-h") {
                return {std::nullopt, helpText(), {}};
            } else if (const std::string problem = option(word); !problem.empty()) {
                return fail(problem);
            }
        }
        if (options_.inputs.empty()) return fail("no input given");
        if ((options_.command == Command::Compress || options_.command == Command::Estimate) &&
            options_.compress.method == Method::TargetSize && !options_.compress.targetMb) {
            return fail("--method tfs needs --target-mb");
        }
        if (options_.command == Command::Fps && options_.fps == 0) return fail("fps needs --fps");
        if (options_.command == Command::Tags && options_.tags.empty()) {
            return fail("tags needs at least one --tag KEY=VALUE");
        }
        return {options_, {}, {}};
    }

private:
    Parsed fail(const std::string& message) { return {std::nullopt, {}, message}; }

    // Applies the option `name`, taking the word after it when it wants a value; gives the
    // problem, empty when there is none.
    std::string option(const std::string& name) {
        const auto row =
            std::find_if(std::begin(kOptions), std::end(kOptions),
                         [&](const OptionRow& candidate) { return candidate.name == name; });
        if (row == std::end(kOptions)) return "unknown option " + name;
        std::string value;
        if (row->takesValue) {
            if (index_ + 1 >= arguments_.size()) return name + " needs a value";
            value = arguments_[++index_];
        }
        const std::string problem = row->apply(options_, value);
        return problem.empty() ? problem : name + " takes " + problem;
    }

    const std::vector<std::string>& arguments_;
    std::size_t index_ = 0;
    Options options_;
};

}  // namespace

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

Parsed parseArguments(const std::vector<std::string>& arguments) {
    return Reader(arguments).read();
}

}  // namespace quillet::cli
