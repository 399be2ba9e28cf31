#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "cli/cli_options.h"

namespace quillet::cli {

// What a batch is to work on, found before any job runs.
struct BatchSources {
    std::vector<std::filesystem::path> sources;  // in order
    // Files the inputs name that are not sources, with why: the batch's own outputs (from an
    // earlier run too) and partial outputs.
    std::vector<std::pair<std::filesystem::path, std::string>> notSources;
    // Partial outputs and working folders that killed runs left, removed first.
    std::vector<std::filesystem::path> removed;
    std::vector<std::string> problems;  // inputs that name nothing, one line each
};

// The sources of `options`' inputs. A command that writes nothing (probe) takes every video and
// removes nothing.
BatchSources batchSources(const Options& options);

}  // namespace quillet::cli
