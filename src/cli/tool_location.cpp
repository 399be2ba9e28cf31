#include "cli/tool_location.h"

#include <cstdlib>
#include <system_error>

#ifdef _WIN32
#include "tools/windows_api.h"
#else
#include <unistd.h>
#endif

#include "tools/program_lookup.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace fs = std::filesystem;

namespace {

#ifdef _WIN32
constexpr const char* kProgramEnding = ".exe";
constexpr char kPathSeparator = ';';
#else
constexpr const char* kProgramEnding = "";
constexpr char kPathSeparator = ':';
#endif

bool isProgram(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return false;
#ifdef _WIN32
    return true;
#else
    return ::access(path.c_str(), X_OK) == 0;
#endif
}

}  // namespace

fs::path ownFolder() {
#ifdef _WIN32
    std::wstring path(32768, L'\0');
    const DWORD length =
        ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length);
    return fs::path(path).parent_path();
#else
    std::error_code error;
    const fs::path self = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path() : self.parent_path();
#endif
}

std::optional<fs::path> findTool(const std::string& name, const fs::path& folder,
                                 std::vector<std::string>& lookedAt) {
    std::vector<fs::path> folders = {folder};
    if (const char* path = std::getenv("PATH")) {
        for (const std::string& entry : searchFolders(path, kPathSeparator)) {
            folders.emplace_back(entry);  // in the system's own code page, as the environment is
        }
    }
    for (const fs::path& place : folders) {
        const fs::path candidate = place / (name + kProgramEnding);
        lookedAt.push_back(utf8Of(candidate));
        if (isProgram(candidate)) return candidate;
    }
    return std::nullopt;
}

}  // namespace quillet::cli
