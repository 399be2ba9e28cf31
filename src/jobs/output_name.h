#pragma once

#include <optional>
#include <string>

namespace quillet {

// The output of a job or tool: beside the source, its file name behind "Compressed-"
// ("D:\clip.avi" gives "D:\Compressed-clip.avi"), blanks trimmed at both ends. Empty when the path
// holds no `separator`, in which case the output path is left as it was.
std::optional<std::string> compressedFileName(const std::string& path, char separator);

}  // namespace quillet
