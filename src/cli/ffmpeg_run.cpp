#include "cli/ffmpeg_run.h"

#include <algorithm>

namespace quillet::cli {

namespace {

constexpr std::size_t kLinesKept = 8;

// A line of the progress report: a key of lower-case letters, digits and "_", then "=".
bool isProgressReport(const std::string& line) {
    const std::size_t equals = line.find('=');
    if (equals == 0 || equals == std::string::npos) return false;
    return std::all_of(
        line.begin(), line.begin() + static_cast<std::ptrdiff_t>(equals),
        [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'; });
}

}  // namespace

RunOutcome runTool(const ProgramCall& call, const std::string& folder, StopRequests& stops,
                   const ProgressHandler& onProgress, bool keepOutput) {
    RunOutcome outcome;
    const std::shared_ptr<ChildProcess> child = ChildProcess::start(call, folder);
    if (!child) return outcome;
    outcome.started = true;
    stops.setChild(child);

    Progress progress;
    std::string line;
    const auto takeLine = [&] {
        if (line.empty()) return;
        if (readProgressLine(line, progress)) {
            if (onProgress) onProgress(progress);
        } else if (!isProgressReport(line)) {
            outcome.lastLines.push_back(line);
            if (outcome.lastLines.size() > kLinesKept) outcome.lastLines.pop_front();
        }
        line.clear();
    };
    char buffer[4096];
    while (const std::size_t count = child->read(buffer, sizeof buffer)) {
        if (keepOutput) outcome.output.append(buffer, count);
        for (std::size_t i = 0; i < count; ++i) {
            if (buffer[i] == '\n' || buffer[i] == '\r') {
                takeLine();
            } else {
                line += buffer[i];
            }
        }
    }
    takeLine();
    outcome.exitCode = child->awaitExit();
    outcome.processorSeconds = child->processorSeconds();
    stops.setChild(nullptr);
    return outcome;
}

}  // namespace quillet::cli
