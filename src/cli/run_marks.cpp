#include "cli/run_marks.h"

#include <cctype>
#include <system_error>

#ifdef _WIN32
#include "tools/windows_api.h"
#else
#include <unistd.h>
#include <cerrno>
#include <csignal>
#endif

#include "cli/output_plan.h"
#include "cli/scratch_folder.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace fs = std::filesystem;

namespace {

long long ownId() {
#ifdef _WIN32
    return static_cast<long long>(::GetCurrentProcessId());
#else
    return static_cast<long long>(::getpid());
#endif
}

// The run of a working folder: "<kScratchPrefix><purpose>-<id>-<random>".
std::optional<long long> folderRun(const std::string& name) {
    const std::size_t dash = name.find('-', kScratchPrefix.size());
    if (!name.starts_with(kScratchPrefix) || dash == std::string::npos) return std::nullopt;
    return markedRun(name.substr(dash), "-");
}

// Whether what the run `owner` made is left over: that run has ended.
bool leftOver(long long owner) {
    return owner != ownId() && !runGoing(owner);
}

}  // namespace

std::string runMark() {
    return "-" + std::to_string(ownId());
}

std::optional<long long> markedRun(const std::string& name, const std::string& tag) {
    const std::size_t at = name.find(tag);
    if (at == std::string::npos) return std::nullopt;
    std::size_t end = at + tag.size();
    long long id = 0;
    constexpr long long kLargestId = 1LL << 40;
    for (; end < name.size() && std::isdigit(static_cast<unsigned char>(name[end])); ++end) {
        id = id * 10 + (name[end] - '0');
        if (id > kLargestId) return std::nullopt;
    }
    if (end == at + tag.size()) return std::nullopt;
    return id;
}

bool runGoing(long long processId) {
    if (processId <= 0) return false;
#ifdef _WIN32
    const HANDLE process =
        ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(processId));
    if (process == nullptr) return ::GetLastError() == ERROR_ACCESS_DENIED;
    DWORD code = 0;
    const bool going = ::GetExitCodeProcess(process, &code) && code == STILL_ACTIVE;
    ::CloseHandle(process);
    return going;
#else
    return ::kill(static_cast<pid_t>(processId), 0) == 0 || errno == EPERM;
#endif
}

bool isWorkingFile(const fs::path& file) {
    return utf8Of(file.filename()).find(kPartialTag) != std::string::npos;
}

std::vector<fs::path> removeLeftovers(const std::vector<fs::path>& folders) {
    std::vector<fs::path> removed;
    const auto removeIf = [&](const fs::directory_entry& entry, bool left) {
        std::error_code error;
        if (left && fs::remove_all(entry.path(), error) > 0 && !error) {
            removed.push_back(entry.path());
        }
    };
    for (const fs::path& folder : folders) {
        std::error_code error;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
            const std::string name = utf8Of(entry.path().filename());
            std::error_code ignored;
            if (entry.is_regular_file(ignored) && isWorkingFile(entry.path())) {
                // A partial without a mark is from a version that marked none.
                const auto owner = markedRun(name, std::string(kPartialTag) + "-");
                removeIf(entry, !owner || leftOver(*owner));
            }
        }
    }
    std::error_code error;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(fs::temp_directory_path(error), error)) {
        std::error_code ignored;
        const std::string name = utf8Of(entry.path().filename());
        const auto owner = folderRun(name);
        if (entry.is_directory(ignored) && owner) removeIf(entry, leftOver(*owner));
    }
    return removed;
}

}  // namespace quillet::cli
