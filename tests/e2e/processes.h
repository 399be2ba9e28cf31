#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace quillet {

// The children of this process that are running ffmpeg now.
inline std::vector<int> ffmpegChildren() {
    std::vector<int> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream stat(entry.path() / "stat");
        std::string pid, name, state;
        int parent = 0;
        if (stat >> pid >> name >> state >> parent && parent == ::getpid() && name == "(ffmpeg)" &&
            state != "Z") {
            found.push_back(std::stoi(pid));
        }
    }
    return found;
}

}  // namespace quillet
