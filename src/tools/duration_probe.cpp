#include "tools/duration_probe.h"

#include <algorithm>
#include <cmath>
#include <mutex>
#include <system_error>
#include <thread>

#include "base/text_format.h"
#include "tools/command_words.h"
#include "tools/dos_outputs.h"
#include "tools/exact_number.h"

namespace quillet {

namespace {

// A whole line holding one finite, non-negative number in ffprobe's notation (never localised).
std::optional<double> numberLine(std::string_view line) {
    const auto value = exactNumber<double>(trimAny(line, " \t"));
    if (!value || !std::isfinite(*value) || *value < 0) return {};
    return value;
}

}  // namespace

std::string durationProbeCommandLine(const std::string& programFolder, const std::string& videoPath,
                                     const PlatformNames& names) {
    return programFolder + names.separator + "ffprobe" + std::string(names.executableSuffix) +
           " -v error -show_entries format=duration -of default=noprint_wrappers=1:nokey=1 " +
           quoteArgument(videoPath);
}

std::optional<double> parseDurationAnswer(const std::string& output) {
    std::optional<double> seconds;
    std::string_view rest = output;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
        if (const auto number = numberLine(rest.substr(0, end))) seconds = number;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return seconds;
}

// What the probe's thread and its owner share. The thread keeps it alive for as long as it runs,
// so an owner that goes first leaves nothing behind that the thread could touch.
struct DurationProbe::Shared {
    DOSOutputs runner;  // its default waiter blocks, which only the probe's own thread does
    mutable std::mutex mutex;
    std::optional<double> seconds;
    bool finished = false;
    bool abandoned = false;

    bool isAbandoned() const {
        std::lock_guard lock(mutex);
        return abandoned;
    }
    void finish(std::optional<double> answer) {
        std::lock_guard lock(mutex);
        seconds = answer;
        finished = true;
    }
};

DurationProbe::DurationProbe(const std::string& commandLine) : shared_(std::make_shared<Shared>()) {
    Shared* shared = shared_.get();
    shared->runner.setCommandLine(commandLine);
    // The owner may go between the start of ffprobe and the moment the runner can end it; a child
    // that starts after that is ended at once.
    shared->runner.ExecutionChanged = [shared](bool executing) {
        if (executing && shared->isAbandoned()) shared->runner.KillChild();
    };
    auto run = [keepAlive = shared_] {
        keepAlive->finish(parseDurationAnswer(keepAlive->runner.ExecuteCommand()));
    };
    try {
        std::thread(std::move(run)).detach();
    } catch (const std::system_error&) {
        shared->finish(std::nullopt);
    }
}

DurationProbe::~DurationProbe() {
    {
        std::lock_guard lock(shared_->mutex);
        shared_->abandoned = true;
    }
    // ffprobe has nothing to save, so it is ended at once rather than asked.
    shared_->runner.KillChild();
}

std::optional<double> DurationProbe::seconds() const {
    std::lock_guard lock(shared_->mutex);
    return shared_->seconds;
}

bool DurationProbe::finished() const {
    std::lock_guard lock(shared_->mutex);
    return shared_->finished;
}

}  // namespace quillet
