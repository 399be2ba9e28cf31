#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

// What a command line asks to run: the program file and the argument words, the program as it was
// written first.
struct ProgramCall {
    std::string file;
    std::vector<std::string> arguments;
};

// Whether a path names an executable regular file.
using ExecutableTest = std::function<bool(const std::string& path)>;

// The folders of a search path such as PATH, in order, split at `separator` (':' here, ';' on
// Windows); an empty entry stands for the current folder.
std::vector<std::string> searchFolders(std::string_view searchPath, char separator);

// Finds the program of a command line the way Windows does: a program in double quotes runs up to
// the next quote; an unquoted one may hold blanks, so the shortest blank-delimited prefix that
// names an executable is taken first, then longer ones, and the rest of the line is the argument
// text. A program name without '/' is looked for in the folders of `searchPath` (':'-separated).
// Empty when nothing fits.
std::optional<ProgramCall> resolveProgram(std::string_view commandLine, std::string_view searchPath,
                                          const ExecutableTest& isExecutable);

}  // namespace quillet
