#include "cli/forecast.h"

#include <algorithm>
#include <cmath>

namespace quillet::cli {

namespace {

constexpr int kMostSamples = 12;
constexpr double kShortestSample = 0.25;  // seconds

// The picture's bytes per second of source around one sample.
double videoBytesPerSecond(const SampleMeasure& sample, double partSeconds, bool first,
                           int keyInterval) {
    const StreamTally& tally = sample.tally;
    const double picturesPerSecond = tally.pictures / sample.span.length;
    const int plainPictures = tally.pictures - tally.keyPictures;
    const double plainBytes = plainPictures > 0 ? (tally.bytes - tally.keyBytes) / plainPictures
                                                : tally.bytes / tally.pictures;
    const double keyBytes = tally.keyPictures > 0 ? tally.keyBytes / tally.keyPictures : plainBytes;
    const double pictures = picturesPerSecond * partSeconds;
    // The part's share of the key pictures the whole will have; the very first is the first part's.
    const double keys = std::min(pictures, pictures / keyInterval + (first ? 1 : 0));
    return ((pictures - keys) * plainBytes + keys * keyBytes) / partSeconds;
}

}  // namespace

std::vector<SampleSpan> sampleSpans(double seconds) {
    if (!(seconds > 0) || !std::isfinite(seconds)) return {};
    const double sampled = seconds * kSampledShare;
    const int count = std::clamp(static_cast<int>(sampled / kShortestSample), 1, kMostSamples);
    const double length = sampled / count;
    std::vector<SampleSpan> spans;
    for (int i = 0; i < count; ++i) {
        const double middle = (i + 0.5) * seconds / count;
        spans.push_back({middle - length / 2, length});
    }
    return spans;
}

template <typename Density>
double ComplexityProfile::integral(double from, double to, Density density) const {
    double sum = 0;
    for (const Part& part : parts_) {
        const double overlap = std::min(to, part.end) - std::max(from, part.start);
        if (overlap > 0) sum += overlap * density(part);
    }
    return sum;
}

double ComplexityProfile::bytesBetween(double from, double to) const {
    return integral(from, to, [](const Part& part) { return part.bytesPerSecond; });
}

double ComplexityProfile::workBetween(double from, double to) const {
    return integral(from, to, [](const Part& part) { return part.workPerSecond; });
}

ComplexityProfile profileFromSamples(const std::vector<SampleMeasure>& samples, double seconds,
                                     double audioBytesPerSecond, int keyInterval) {
    std::vector<const SampleMeasure*> usable;
    double knownWork = 0;
    int workKnown = 0;
    for (const SampleMeasure& sample : samples) {
        if (sample.tally.pictures == 0 || !(sample.span.length > 0)) continue;
        usable.push_back(&sample);
        if (sample.workPerSecond) {
            knownWork += *sample.workPerSecond;
            ++workKnown;
        }
    }
    if (usable.empty() || !(seconds > 0)) return {};
    // A sample ended before ffmpeg measured it costs what the others cost on average.
    const double usualWork = workKnown > 0 ? knownWork / workKnown : 0;
    std::vector<ComplexityProfile::Part> parts;
    for (std::size_t i = 0; i < usable.size(); ++i) {
        const auto middle = [&](std::size_t k) {
            return usable[k]->span.start + usable[k]->span.length / 2;
        };
        const double start = i == 0 ? 0 : (middle(i - 1) + middle(i)) / 2;
        const double end = i + 1 == usable.size() ? seconds : (middle(i) + middle(i + 1)) / 2;
        if (!(end > start)) continue;
        parts.push_back({start, end,
                         videoBytesPerSecond(*usable[i], end - start, i == 0, keyInterval) +
                             audioBytesPerSecond,
                         usable[i]->workPerSecond.value_or(usualWork)});
    }
    return ComplexityProfile(std::move(parts));
}

std::optional<Projection> project(const ComplexityProfile& profile, double encodedSeconds,
                                  double bytesWritten, double elapsedSeconds) {
    if (profile.empty()) return std::nullopt;
    const double whole = profile.seconds();
    const double done = std::clamp(encodedSeconds, 0.0, whole);
    Projection projection{profile.bytesBetween(0, whole), profile.workBetween(0, whole)};
    // What the job has done so far says how far off the samples are; the profile says how the
    // rest compares with what is done.
    const double bytesDone = profile.bytesBetween(0, done);
    if (bytesWritten > 0 && bytesDone > 0) {
        projection.finalBytes =
            bytesWritten + bytesWritten / bytesDone * profile.bytesBetween(done, whole);
    }
    const double workDone = profile.workBetween(0, done);
    if (elapsedSeconds > 0 && workDone > 0) {
        projection.secondsLeft = elapsedSeconds / workDone * profile.workBetween(done, whole);
    } else if (elapsedSeconds > 0 && done > 0) {
        projection.secondsLeft = elapsedSeconds / done * (whole - done);
    }
    return projection;
}

}  // namespace quillet::cli
