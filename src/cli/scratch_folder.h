#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quillet::cli {

// How working folders' names start: "quillet-cli-work-<purpose>-<run's process id>-<random>".
inline constexpr std::string_view kScratchPrefix = "quillet-cli-work-";

// A folder of the system's temporary folder for a job's working files, gone with this object
// (and, should the run be killed, with the next run's start; see run_marks.h).
class ScratchFolder {
public:
    explicit ScratchFolder(const std::string& purpose);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace quillet::cli
