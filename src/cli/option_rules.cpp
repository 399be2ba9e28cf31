#include "cli/option_rules.h"

#include <algorithm>
#include <span>

#include "cli/encoder_limits.h"
#include "cli/word_list.h"

namespace quillet::cli {

namespace {

std::string text(std::string_view name) {
    return std::string(name);
}

bool takes(Commands commands, Command command) {
    return (commands & commandsOf({command})) != 0;
}

const GivenOption* findGiven(const std::vector<GivenOption>& given, std::string_view name) {
    const auto option = std::ranges::find(given, name, [](auto& o) { return o.row->name; });
    return option == given.end() ? nullptr : &*option;
}

// An option none of the command's jobs use would be left out without a word.
std::string commandProblem(Command command, const std::vector<GivenOption>& given) {
    for (const GivenOption& option : given) {
        if (takes(option.row->commands, command)) continue;
        std::vector<std::string> names;
        for (const auto& [name, other] : kCommandNames) {
            if (takes(option.row->commands, other)) names.emplace_back(name);
        }
        return text(option.row->name) + " is for " + wordList(names, "and") + ", not " +
               text(nameOf(command));
    }
    return {};
}

// Of two values for one setting only one could be meant; --tag adds a tag each time.
std::string contradictionProblem(const std::vector<GivenOption>& given) {
    for (auto later = given.begin(); later != given.end(); ++later) {
        if (later->row->takes != Takes::Value) continue;
        for (auto earlier = given.begin(); earlier != later; ++earlier) {
            if (earlier->row == later->row && earlier->value != later->value) {
                return text(later->row->name) + " is given twice, as \"" + earlier->value +
                       "\" and \"" + later->value + "\"";
            }
        }
    }
    if (findGiven(given, "--overwrite") && findGiven(given, "--rename")) {
        return "--overwrite and --rename cannot be used together";
    }
    return {};
}

// The method is the one --method names, or else the one its options belong to; an option of
// another method would be left out.
std::string methodProblem(CompressSettings& compress, const std::vector<GivenOption>& given) {
    const GivenOption* methodOption = findGiven(given, "--method");
    const GivenOption* chosenBy = methodOption;
    for (const GivenOption& option : given) {
        if (!option.row->method) continue;
        const Method method = *option.row->method;
        if (methodOption) {
            if (method == compress.method) continue;
            return text(option.row->name) + " needs --method " + text(nameOf(method));
        }
        if (!chosenBy) {
            chosenBy = &option;
        } else if (chosenBy->row->method != method) {
            return text(chosenBy->row->name) + " and " + text(option.row->name) +
                   " belong to different methods (" + text(nameOf(*chosenBy->row->method)) +
                   " and " + text(nameOf(method)) + ")";
        }
    }
    if (!methodOption && chosenBy) compress.method = *chosenBy->row->method;
    if (compress.method == Method::TargetSize && !compress.targetMb) {
        return (methodOption ? "--method tfs" : text(chosenBy->row->name)) + " needs --target-mb";
    }
    return {};
}

std::string neededProblem(const Options& options) {
    if (options.command == Command::Fps && options.fps == 0) return "fps needs --fps";
    if (options.command == Command::Tags && options.tags.empty()) {
        return "tags needs at least one --tag KEY=VALUE";
    }
    return {};
}

struct AudioEncoder {
    std::string_view name;
    std::span<const int> sampleRates;
};

// The encoder of the audio the command's jobs write; none when it copies the audio.
std::optional<AudioEncoder> audioEncoder(const Options& options) {
    constexpr AudioEncoder aac{"AAC", kAacSampleRates};
    constexpr AudioEncoder mp3{"MP3", kMp3SampleRates};
    switch (options.command) {
        case Command::Compress:
        case Command::Estimate:
        case Command::Fps:
            return aac;
        case Command::Mp3:
            return mp3;
        case Command::Scale:
            return options.scaleMp3 ? mp3 : aac;
        case Command::Tags:
        case Command::Probe:
            return std::nullopt;
    }
    return std::nullopt;
}

std::string sampleRateProblem(const Options& options) {
    if (!options.sampleRate) return {};
    const auto encoder = audioEncoder(options);
    // The commands that write no audio are refused the option beforehand.
    if (!encoder) return {};
    if (std::ranges::find(encoder->sampleRates, *options.sampleRate) !=
        encoder->sampleRates.end()) {
        return {};
    }
    std::vector<std::string> rates;
    for (const int rate : encoder->sampleRates) rates.push_back(std::to_string(rate));
    return "--sample-rate takes, for " + text(encoder->name) + " audio, " + wordList(rates, "or") +
           ", not " + std::to_string(*options.sampleRate);
}

// libx265 refuses a look-ahead that does not reach past the preset's longest run of B-frames.
std::string lookAheadProblem(const Options& options) {
    if (options.compress.method != Method::Qp) return {};
    const X265Preset* preset = x265Preset(options.preset);
    if (!preset || options.compress.lookAhead > preset->bFrames) return {};
    return "--lookahead takes more than " + std::to_string(preset->bFrames) + " with the preset " +
           text(preset->name) + " (libx265 looks past its longest run of B-frames), not " +
           std::to_string(options.compress.lookAhead);
}

}  // namespace

std::string settleTogether(Options& options, const std::vector<GivenOption>& given) {
    std::string problem = commandProblem(options.command, given);
    if (problem.empty()) problem = contradictionProblem(given);
    if (problem.empty() && takes(kMethodCommands, options.command)) {
        problem = methodProblem(options.compress, given);
    }
    if (problem.empty()) problem = neededProblem(options);
    if (problem.empty()) problem = sampleRateProblem(options);
    if (problem.empty()) problem = lookAheadProblem(options);
    return problem;
}

}  // namespace quillet::cli
