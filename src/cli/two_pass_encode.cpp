#include "cli/two_pass_encode.h"

#include <chrono>
#include <system_error>

#include "cli/output_plan.h"
#include "cli/scratch_folder.h"
#include "cli/target_search.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace fs = std::filesystem;

namespace {

// How many times the second pass may run, the first included.
constexpr int kSecondPassesAllowed = 3;

// The first pass's pace along the source: each stretch between two progress reports costs what it
// took. The second pass does the same work with more care, so its time left follows this shape.
class PaceRecord {
public:
    void take(const Progress& progress) {
        const auto now = std::chrono::steady_clock::now();
        if (progress.encodedSeconds > encoded_ && started_) {
            const double took = std::chrono::duration<double>(now - at_).count();
            // (its bytes and pictures are not needed: the second pass aims at a size)
            parts_.push_back({encoded_, progress.encodedSeconds, 1.0,
                              took / (progress.encodedSeconds - encoded_), 0});
        }
        if (!started_ || progress.encodedSeconds > encoded_) {
            started_ = true;
            at_ = now;
            encoded_ = progress.encodedSeconds;
        }
    }
    ComplexityProfile profile() const { return ComplexityProfile(parts_); }

private:
    bool started_ = false;
    std::chrono::steady_clock::time_point at_;
    double encoded_ = 0;
    std::vector<ComplexityProfile::Part> parts_;
};

// What the search came to, unless it landed where it aims.
std::string targetNote(const TargetSearch& search) {
    const std::string tries = std::to_string(search.encodes()) + " tries at the second pass";
    const auto best = search.bestUnder();
    if (!best) return "none of " + tries + " came within the target; nothing is kept";
    if (search.landed()) return {};
    const double under = 100 * (1 - best->bytes / search.targetBytes());
    return "kept the best of " + tries + ", " + percentText(under) + "% under the target";
}

// The second pass, run again on the same statistics at the rates the search asks. The best
// attempt not over the target is set aside beside the output, so that a later attempt cannot
// overwrite it.
RunOutcome secondPasses(const TwoPassJob& job, long long rate, double audioBytes,
                        const fs::path& folder, const ComplexityProfile& pace, std::string& note) {
    TargetSearch search(*job.options.compress.targetMb * kBytesPerMb, audioBytes,
                        kSecondPassesAllowed);
    const fs::path output = pathFromUtf8(job.files.output);
    fs::path best = output;
    best += pathFromUtf8(".best");
    bool setAside = true;  // the best attempt so far is where it belongs
    RunOutcome outcome;
    for (;;) {
        job.secondPassStarts(rate * *job.facts.seconds / 8 + audioBytes, pace);
        outcome =
            job.encode(secondPassArguments(job.options, job.files, job.facts, rate), folder, {});
        if (!outcome.succeeded() || job.stops.requested()) break;
        if (search.record(rate, static_cast<double>(fileSize(output))))
            setAside = finishOutput(output, best);
        if (!setAside || search.finished()) break;
        rate = search.nextRate();
    }
    if (outcome.succeeded() && !job.stops.requested() && setAside) {
        if (search.bestUnder()) {
            setAside = finishOutput(best, output);
            note = targetNote(search);
        } else {
            outcome.exitCode = -1;
            outcome.lastLines = {targetNote(search)};
        }
    }
    if (!setAside) {
        outcome.exitCode = -1;
        outcome.lastLines = {"the best attempt cannot be set aside beside the output"};
    }
    std::error_code ignored;
    fs::remove(best, ignored);
    return outcome;
}

}  // namespace

RunOutcome twoPassEncode(const TwoPassJob& job, long long firstRate, std::string& note) {
    // The statistics and the audio live in a folder of their own.
    const ScratchFolder folder("passes");
    PaceRecord pace;
    RunOutcome outcome =
        job.encode(firstPassArguments(job.options, job.files, job.facts, firstRate), folder.path(),
                   [&](const Progress& progress) { pace.take(progress); });
    if (!outcome.succeeded() || job.stops.requested()) return outcome;
    const double audioBytes =
        job.facts.hasAudio() ? static_cast<double>(fileSize(folder.path() / kPassAudio)) : 0;
    const TargetRate rate =
        targetRate(*job.options.compress.targetMb, *job.facts.seconds, audioBytes * 8);
    if (!rate.refusal.empty()) {
        outcome.exitCode = -1;
        outcome.lastLines = {rate.refusal};
        return outcome;
    }
    return secondPasses(job, rate.videoBitsPerSecond, audioBytes, folder.path(), pace.profile(),
                        note);
}

}  // namespace quillet::cli
