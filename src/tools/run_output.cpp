#include "tools/run_output.h"

#include <system_error>

#include "tools/utf8_paths.h"

namespace quillet {

RunOutputMark markRunOutput(const std::string& path) {
    RunOutputMark mark;
    if (path.empty()) return mark;
    const std::filesystem::path file = pathFromUtf8(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return mark;
    mark.size = std::filesystem::file_size(file, error);
    if (error) return mark;
    mark.written = std::filesystem::last_write_time(file, error);
    mark.existed = !error;
    return mark;
}

bool removeStoppedRunOutput(const std::string& path, const RunOutputMark& before) {
    if (path.empty()) return false;
    const RunOutputMark now = markRunOutput(path);
    if (!now.existed) return false;
    if (before.existed && now.size == before.size && now.written == before.written) return false;
    std::error_code error;
    return std::filesystem::remove(pathFromUtf8(path), error);
}

}  // namespace quillet
