#pragma once

#include <filesystem>
#include <string>

namespace quillet::cli {

// A folder of the system's temporary folder for a job's working files, gone with this object.
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
