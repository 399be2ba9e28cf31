#pragma once

#include <filesystem>
#include <string>

namespace quillet {

// The folder that holds the program, where it looks for ffmpeg, ffprobe and its help document:
// as text with the system's own separators (for command lines and messages), and as a path that
// keeps every character of the name (for looking into the folder).
std::string programFolder();
std::filesystem::path programFolderPath();

}  // namespace quillet
