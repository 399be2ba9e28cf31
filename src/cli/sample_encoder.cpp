#include "cli/sample_encoder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <thread>

#include "cli/ffmpeg_run.h"
#include "cli/job_arguments.h"
#include "cli/kept_streams.h"
#include "cli/scratch_folder.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace {

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// How many times faster a whole job encodes a picture than a sample's processor time says: a
// whole job keeps every processor busy at a steady pace, while a sample of a few pictures keeps
// about one busy and pays for filling the encoder's look-ahead. Measured as 1.2 times the
// processors on two of them, over the forecast bench's clips on an idle machine.
double wholeJobSpeedUp() {
    constexpr double kSteadyPace = 1.2;
    constexpr unsigned kMostUsed = 16;
    const unsigned count = std::clamp(std::thread::hardware_concurrency(), 1u, kMostUsed);
    return count * kSteadyPace;
}

}  // namespace

ComplexityProfile measureComplexity(const Options& options, const std::string& ffmpeg,
                                    const std::string& ffprobe, const std::string& source,
                                    const SourceFacts& facts, long long videoBitsPerSecond,
                                    double audioBytesPerSecond, StopRequests& stops) {
    const RunOutcome packets =
        runTool(ProgramCall{ffprobe, packetArguments(ffprobe, source)}, {}, stops, {}, true);
    if (stops.requested()) return {};
    const ScratchFolder folder("samples");
    const std::filesystem::path stream = folder.path() / "sample.hevc";
    const JobFiles files{ffmpeg, source, utf8Of(stream)};
    const auto encodeSpan = [&](const SampleSpan& span) {
        return runTool(ProgramCall{ffmpeg, sampleArguments(options, files, facts, span.start,
                                                           span.length, videoBitsPerSecond)},
                       {}, stops, {});
    };
    const double seconds = facts.seconds.value_or(0);
    const std::vector<SampleSpan> spans = sampleSpans(seconds);
    if (spans.empty()) return {};
    // What starting costs, which a whole job spends once and each sample again: the processor
    // time of a single picture from the sample's start, mostly on one processor. Its run decodes,
    // as the sample's does, from the source's key picture before that start, which the whole job
    // does not; the cheapest one is the whole job's start.
    std::optional<double> wholeStart;
    std::vector<SampleMeasure> measures;
    for (const SampleSpan& span : spans) {
        const double startCost = encodeSpan({span.start, 0}).processorSeconds;
        const RunOutcome outcome = encodeSpan(span);
        if (stops.requested()) return {};
        if (!outcome.succeeded()) continue;
        const StreamTally tally = tallyStream(contentsOf(stream));
        if (tally.pictures == 0) continue;
        wholeStart = std::min(wholeStart.value_or(startCost), startCost);
        // The single picture's run took the starting and the sample's key picture.
        const double work = std::max(0.0, outcome.processorSeconds - startCost);
        const int laterPictures = std::max(1, tally.pictures - 1);
        measures.push_back({span, tally, work / laterPictures / wholeJobSpeedUp()});
    }
    return profileFromSamples(measures, parsePacketAnswer(packets.output), seconds,
                              audioBytesPerSecond, wholeStart.value_or(0));
}

ComplexityProfile jobProfile(const Options& options, const std::string& ffmpeg,
                             const std::string& ffprobe, const std::string& source,
                             const SourceFacts& facts, long long videoBitsPerSecond,
                             StopRequests& stops) {
    const bool compresses =
        options.command == Command::Compress || options.command == Command::Estimate;
    if (!facts.seconds || !compresses) return {};
    const double soundBytesPerSecond = soundKbps(options, facts) * 1000.0 / 8;
    const ComplexityProfile profile = measureComplexity(
        options, ffmpeg, ffprobe, source, facts, videoBitsPerSecond, soundBytesPerSecond, stops);
    // An average bit rate is what the encoder holds to, more closely than a short sample, whose
    // rate control has not settled, shows; the samples still tell where it spends it.
    const auto averageRate = options.compress.method == Method::Abr
                                 ? bitsPerSecond(options.compress.bitRate)
                                 : std::nullopt;
    if (!averageRate || profile.empty()) return profile;
    return profile.withVideoBytes(*averageRate / 8 * *facts.seconds, soundBytesPerSecond);
}

}  // namespace quillet::cli
