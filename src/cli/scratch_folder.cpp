#include "cli/scratch_folder.h"

#include <random>
#include <system_error>

#include "cli/run_marks.h"

namespace quillet::cli {

ScratchFolder::ScratchFolder(const std::string& purpose) {
    std::error_code error;
    path_ = std::filesystem::temp_directory_path(error) /
            (std::string(kScratchPrefix) + purpose + runMark() + "-" +
             std::to_string(std::random_device{}()));
    std::filesystem::create_directories(path_, error);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace quillet::cli
