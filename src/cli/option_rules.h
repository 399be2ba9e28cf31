#pragma once

#include <string>
#include <vector>

#include "cli/option_table.h"

namespace quillet::cli {

// An option as the command line gives it.
struct GivenOption {
    const OptionRow* row;
    std::string value;  // empty for an option that takes none
};

// Checks the options given together, once each has been read into `options`, so that no job
// starts with an option it would leave out or one ffmpeg would refuse; settles the method an
// option implies when none is named. Gives the problem, empty when there is none.
std::string settleTogether(Options& options, const std::vector<GivenOption>& given);

}  // namespace quillet::cli
