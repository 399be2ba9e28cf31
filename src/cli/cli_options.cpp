#include "cli/cli_options.h"

#include <charconv>
#include <map>

namespace quillet::cli {

namespace {

const std::map<std::string, Command, std::less<>> kCommands = {
    {"compress", Command::Compress}, {"mp3", Command::Mp3},   {"scale", Command::Scale},
    {"fps", Command::Fps},           {"tags", Command::Tags}, {"probe", Command::Probe},
};

const std::map<std::string, Method, std::less<>> kMethods = {
    {"tfs", Method::TargetSize}, {"crf", Method::Crf}, {"abr", Method::Abr}, {"qp", Method::Qp}};

std::optional<int> wholeNumber(const std::string& text, int low, int high) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value < low || value > high) {
        return std::nullopt;
    }
    return value;
}

std::optional<double> positiveNumber(const std::string& text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !(value > 0)) {
        return std::nullopt;
    }
    return value;
}

// A rate as ffmpeg takes it: a number with an optional "k" or "M".
bool isRate(const std::string& text) {
    std::string number = text;
    if (!number.empty() && (number.back() == 'k' || number.back() == 'M')) number.pop_back();
    return positiveNumber(number).has_value();
}

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
            } else if (!option(word)) {
                return fail(error_.empty() ? "unknown option " + word : error_);
            }
        }
        if (options_.inputs.empty()) return fail("no input given");
        if (options_.command == Command::Compress &&
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

    // The value after the option, or nothing (and the error set) when there is none.
    std::optional<std::string> value(const std::string& name) {
        if (index_ + 1 >= arguments_.size()) {
            error_ = name + " needs a value";
            return std::nullopt;
        }
        return arguments_[++index_];
    }

    bool number(const std::string& name, int& target, int low, int high) {
        const auto text = value(name);
        if (!text) return false;
        const auto parsed = wholeNumber(*text, low, high);
        if (!parsed) {
            error_ = name + " takes a whole number from " + std::to_string(low) + " to " +
                     std::to_string(high) + ", not \"" + *text + "\"";
            return false;
        }
        target = *parsed;
        return true;
    }

    bool rate(const std::string& name, std::string& target) {
        const auto text = value(name);
        if (!text) return false;
        if (!isRate(*text)) {
            error_ = name + " takes a rate such as 900k or 1.5M, not \"" + *text + "\"";
            return false;
        }
        target = *text;
        return true;
    }

    bool option(const std::string& name) {
        CompressSettings& compress = options_.compress;
        if (name == "--method") {
            const auto text = value(name);
            if (!text) return false;
            const auto method = kMethods.find(*text);
            if (method == kMethods.end()) {
                error_ = "--method takes tfs, crf, abr or qp, not \"" + *text + "\"";
                return false;
            }
            compress.method = method->second;
            return true;
        }
        if (name == "--target-mb") {
            const auto text = value(name);
            if (!text) return false;
            compress.targetMb = positiveNumber(*text);
            if (!compress.targetMb) error_ = "--target-mb takes a size in MB above 0";
            return compress.targetMb.has_value();
        }
        if (name == "--two-pass") return compress.twoPass = true;
        if (name == "--crf") {
            int crf = 0;
            if (!number(name, crf, 0, 51)) return false;
            compress.crf = crf;
            options_.scaleCrf = crf;
            return true;
        }
        if (name == "--bitrate") return rate(name, compress.bitRate);
        if (name == "--minrate") return rate(name, compress.minRate);
        if (name == "--maxrate") return rate(name, compress.maxRate);
        if (name == "--bufsize") return rate(name, compress.bufferSize);
        if (name == "--qp") return number(name, compress.qp, 0, 51);
        if (name == "--lookahead") return number(name, compress.lookAhead, 0, 250);
        if (name == "--preset") {
            const auto text = value(name);
            if (text) options_.preset = *text;
            return text.has_value();
        }
        if (name == "--audio-bitrate") return number(name, options_.audioKbps, 8, 640);
        if (name == "--sample-rate") return number(name, options_.sampleRate, 8000, 384000);
        if (name == "--quality") return number(name, options_.mp3Quality, 1, 9);
        if (name == "--mp3") {
            options_.scaleMp3 = true;
            return number(name, options_.mp3Quality, 1, 9);
        }
        if (name == "--height") {
            if (!number(name, options_.height, 1, 100000)) return false;
            const int height = options_.height;
            if (height == 240 || height == 360 || height == 480 || height == 720) return true;
            error_ = "--height takes 240, 360, 480 or 720";
            return false;
        }
        if (name == "--fps") return number(name, options_.fps, 1, 1000);
        if (name == "--tag") {
            const auto text = value(name);
            if (!text) return false;
            const std::size_t equals = text->find('=');
            if (equals == 0 || equals == std::string::npos) {
                error_ = "--tag takes KEY=VALUE, not \"" + *text + "\"";
                return false;
            }
            options_.tags.emplace_back(text->substr(0, equals), text->substr(equals + 1));
            return true;
        }
        if (name == "--output-dir") {
            const auto text = value(name);
            if (text) options_.outputFolder = *text;
            return text.has_value();
        }
        if (name == "--overwrite") return (options_.existing = ExistingOutput::Overwrite), true;
        if (name == "--rename") return (options_.existing = ExistingOutput::Rename), true;
        if (name == "--json") return options_.json = true;
        return false;
    }

    const std::vector<std::string>& arguments_;
    std::size_t index_ = 0;
    Options options_;
    std::string error_;
};

}  // namespace

Parsed parseArguments(const std::vector<std::string>& arguments) {
    return Reader(arguments).read();
}

}  // namespace quillet::cli
