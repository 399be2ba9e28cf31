#include "cli/sample_encoder.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string_view>

#include "cli/ffmpeg_run.h"
#include "cli/job_arguments.h"
#include "cli/scratch_folder.h"
#include "tools/exact_number.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace {

using Clock = std::chrono::steady_clock;

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// The encoder's pace once under way: from the first progress that shows output to the last, so
// that seeking to the sample and starting the encoder are not counted as work.
class PaceWatch {
public:
    void take(const Progress& progress) {
        if (progress.encodedSeconds <= 0) return;
        const Clock::time_point now = Clock::now();
        if (!first_) first_ = Mark{now, progress.encodedSeconds};
        last_ = Mark{now, progress.encodedSeconds};
    }
    std::optional<double> workPerSecond() const {
        if (!first_ || !last_ || last_->encoded <= first_->encoded) return std::nullopt;
        return std::chrono::duration<double>(last_->at - first_->at).count() /
               (last_->encoded - first_->encoded);
    }

private:
    struct Mark {
        Clock::time_point at;
        double encoded;
    };
    std::optional<Mark> first_;
    std::optional<Mark> last_;
};

// The encoder's own count of its time, from its closing line "encoded 7 frames in 0.24s (...)":
// it leaves out the seeking and decoding that lead up to a sample, which the whole job has not.
std::optional<double> encoderSeconds(const std::deque<std::string>& lines) {
    constexpr std::string_view kBefore = " frames in ";
    for (const std::string& line : lines) {
        if (line.rfind("encoded ", 0) != 0) continue;
        const std::size_t from = line.find(kBefore);
        const std::size_t to = line.find("s (", from);
        if (from == std::string::npos || to == std::string::npos) continue;
        const std::size_t start = from + kBefore.size();
        const auto seconds = exactNumber<double>(line.substr(start, to - start));
        if (seconds && std::isfinite(*seconds) && *seconds >= 0) return seconds;
    }
    return std::nullopt;
}

}  // namespace

std::vector<SampleMeasure> encodeSamples(const Options& options, const std::string& ffmpeg,
                                         const std::string& source, double seconds,
                                         long long videoBitsPerSecond, StopRequests& stops) {
    const ScratchFolder folder("samples");
    const std::filesystem::path stream = folder.path() / "sample.hevc";
    const JobFiles files{ffmpeg, source, utf8Of(stream)};
    const auto encodeSpan = [&](const SampleSpan& span, PaceWatch& pace) {
        return runTool(ProgramCall{ffmpeg, sampleArguments(options, files, span.start, span.length,
                                                           videoBitsPerSecond)},
                       {}, stops, [&](const Progress& progress) { pace.take(progress); });
    };
    const std::vector<SampleSpan> spans = sampleSpans(seconds);
    if (spans.empty()) return {};
    // What the encoder spends on starting and stopping, which a whole job spends once and each
    // sample again: the time of a sample of a single picture.
    PaceWatch unused;
    const RunOutcome start = encodeSpan({spans.front().start, 0}, unused);
    const double startSeconds = encoderSeconds(start.lastLines).value_or(0);
    std::vector<SampleMeasure> measures;
    for (const SampleSpan& span : spans) {
        PaceWatch pace;
        const RunOutcome outcome = encodeSpan(span, pace);
        if (stops.requested()) return {};
        if (!outcome.succeeded()) continue;
        const std::optional<double> encoding = encoderSeconds(outcome.lastLines);
        measures.push_back(
            {span, tallyStream(contentsOf(stream)),
             encoding ? std::optional(std::max(0.0, *encoding - startSeconds) / span.length)
                      : pace.workPerSecond()});
    }
    return measures;
}

}  // namespace quillet::cli
