#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillet::cli {

// The folder the running companion lives in.
std::filesystem::path ownFolder();

// Finds a tool ("ffmpeg", "ffprobe") in `ownFolder` first, then in the folders of the PATH, with
// the system's program ending. Adds every place looked at to `lookedAt`.
std::optional<std::filesystem::path> findTool(const std::string& name,
                                              const std::filesystem::path& ownFolder,
                                              std::vector<std::string>& lookedAt);

}  // namespace quillet::cli
