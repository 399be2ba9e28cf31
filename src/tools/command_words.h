#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet {

// The blanks that separate the words of a command line: space and tab.
bool isWordSeparator(char c);

// The argument words of a command line, split as a Windows program splits the text that follows
// its program name: blanks separate words, double quotes group, backslashes count only right before
// a double quote. This is how the tool command lines, written for Windows, reach a child here.
std::vector<std::string> splitArguments(std::string_view argumentText);

// One argument in double quotes, escaped so that splitArguments gives back exactly `text`. A path
// without a double quote and without a trailing backslash comes out as '"' + path + '"', the form
// the tool command lines show.
std::string quoteArgument(std::string_view text);

// The command line of `words`, each quoted, so that splitting it gives back exactly `words`.
std::string joinArguments(const std::vector<std::string>& words);

}  // namespace quillet
