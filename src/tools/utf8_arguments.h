#pragma once

#include <string>
#include <vector>

namespace quillet {

// The arguments this program was started with, its own name first, as UTF-8. On Windows they are
// taken from the wide command line, which no code page has narrowed, so every file name comes
// through.
std::vector<std::string> utf8Arguments(int argc, char** argv);

}  // namespace quillet
