#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace quillet {

// What the file a run is to write looked like as the run started, so that a run the program
// stops can take back what it wrote and nothing else: a file the run never reached, an earlier
// result included, stays as it was.
struct RunOutputMark {
    bool existed = false;
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written{};
};

// `path` is UTF-8; an empty path marks nothing.
RunOutputMark markRunOutput(const std::string& path);

// Removes the file at `path` when the run made it or wrote to it since `before` was taken. True
// when a file was removed.
bool removeStoppedRunOutput(const std::string& path, const RunOutputMark& before);

}  // namespace quillet
