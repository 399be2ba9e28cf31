#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "cli/cli_options.h"

namespace quillet::cli {

// The commands and the methods by name, the commands in the order the help gives them.
inline constexpr std::pair<std::string_view, Command> kCommandNames[] = {
    {"compress", Command::Compress}, {"estimate", Command::Estimate}, {"mp3", Command::Mp3},
    {"scale", Command::Scale},       {"fps", Command::Fps},           {"tags", Command::Tags},
    {"probe", Command::Probe}};
inline constexpr std::pair<std::string_view, Method> kMethodNames[] = {
    {"tfs", Method::TargetSize}, {"crf", Method::Crf}, {"abr", Method::Abr}, {"qp", Method::Qp}};

std::string_view nameOf(Command command);
std::string_view nameOf(Method method);

// A set of commands, a bit each.
using Commands = unsigned;
constexpr Commands commandsOf(std::initializer_list<Command> commands) {
    Commands set = 0;
    for (const Command command : commands) set |= 1u << static_cast<unsigned>(command);
    return set;
}
// The commands that choose among the methods.
inline constexpr Commands kMethodCommands = commandsOf({Command::Compress, Command::Estimate});

// What follows an option: nothing, a value it takes once, or a value each time it is given.
enum class Takes { Nothing, Value, Values };

// One option: its name, what follows it, the commands that take it, the method of kMethodCommands
// it belongs to, and what it does with the options (given the value, or an empty text). `apply`
// gives the problem with the value, to follow "OPTION takes ", empty when there is none.
struct OptionRow {
    std::string_view name;
    Takes takes;
    Commands commands;
    std::optional<Method> method;
    std::string (*apply)(Options& options, const std::string& value);
};

// The option of that name; none for an unknown one.
const OptionRow* findOption(std::string_view name);

}  // namespace quillet::cli
