#include "cli/forecast.h"

#include <algorithm>
#include <cmath>

namespace quillet::cli {

namespace {

constexpr int kMostSamples = 12;
constexpr double kShortestSample = 0.5;  // seconds: shorter ones miss by a fifth either way
constexpr double kLongestSample = 2.0;   // seconds: enough to learn from, on a long source
constexpr double kSourceWindow = 2.0;    // seconds, at least
constexpr double kMostParts = 600;
constexpr double kForecastWeight = 0.25;  // of the whole, what the samples weigh in a projection
constexpr double kTrustedBytes = 1048576;

// What one sample's pictures cost: a plain picture, and a key picture.
struct PictureCost {
    double plainBytes;
    double keyBytes;
};

PictureCost pictureCost(const StreamTally& tally) {
    const int plainPictures = tally.pictures - tally.keyPictures;
    const double plain = plainPictures > 0 ? (tally.bytes - tally.keyBytes) / plainPictures
                                           : tally.bytes / tally.pictures;
    const double key = tally.keyPictures > 0 ? tally.keyBytes / tally.keyPictures : plain;
    return {plain, key};
}

// Of the whole's `pictures`, the share of key pictures after its first: the encoder puts one at
// the start and another every `keyInterval` pictures, the last a few before that count, and none
// among the last few pictures of the source (as measured with libx265's own interval).
double laterKeyShare(double pictures, int keyInterval) {
    constexpr double kKeyLead = 4;  // pictures
    if (!(pictures > kKeyLead) || keyInterval < 1) return 0;
    return std::floor((pictures - kKeyLead) / keyInterval) / pictures;
}

// What one sample tells of the stretch around it, per picture.
struct SampleRates {
    double middle;       // seconds into the source
    double sourceBytes;  // the source's picture bytes around it
    double videoBytes;   // the output's picture bytes, with key pictures as often as in the whole
    std::optional<double> work;
};

// The sample that stands for a stretch of the source: of the two nearest, the one whose source
// spends bytes most alike, so that a stretch on the far side of a cut between scenes follows the
// sample of its own scene.
const SampleRates& standIn(const std::vector<SampleRates>& samples, double middle,
                           double sourceBytes) {
    const auto after = std::lower_bound(
        samples.begin(), samples.end(), middle,
        [](const SampleRates& sample, double time) { return sample.middle < time; });
    if (after == samples.begin()) return *after;
    if (after == samples.end()) return samples.back();
    const auto before = std::prev(after);
    const auto unlike = [&](const SampleRates& sample) {
        return std::abs(std::log((sample.sourceBytes + 1) / (sourceBytes + 1)));
    };
    return unlike(*before) <= unlike(*after) ? *before : *after;
}

}  // namespace

std::vector<SampleSpan> sampleSpans(double seconds) {
    if (!(seconds > 0) || !std::isfinite(seconds)) return {};
    const double sampled = seconds * kSampledShare;
    const int count = std::clamp(static_cast<int>(sampled / kShortestSample), 1, kMostSamples);
    const double length = std::min(sampled / count, kLongestSample);
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

double ComplexityProfile::secondsOfPictures(double at, double pictures) const {
    const auto part = std::find_if(parts_.begin(), parts_.end(),
                                   [&](const Part& candidate) { return at < candidate.end; });
    const Part& around = part == parts_.end() ? parts_.back() : *part;
    return around.picturesPerSecond > 0 ? pictures / around.picturesPerSecond : 0;
}

ComplexityProfile ComplexityProfile::withVideoBytes(double videoBytes,
                                                    double audioBytesPerSecond) const {
    const double audio = audioBytesPerSecond * seconds();
    const double video = bytesBetween(0, seconds()) - audio;
    if (!(video > 0)) return *this;
    std::vector<Part> parts = parts_;
    for (Part& part : parts) {
        part.bytesPerSecond =
            (part.bytesPerSecond - audioBytesPerSecond) * videoBytes / video + audioBytesPerSecond;
    }
    return ComplexityProfile(std::move(parts));
}

ComplexityProfile profileFromSamples(const std::vector<SampleMeasure>& samples,
                                     const SourceBytes& source, double seconds,
                                     double audioBytesPerSecond, double startWork,
                                     int keyInterval) {
    if (!(seconds > 0) || !std::isfinite(seconds)) return {};
    std::vector<const SampleMeasure*> usable;
    double samplePictureRate = 0;  // per second, as the samples' own runs had them
    for (const SampleMeasure& sample : samples) {
        if (sample.tally.pictures == 0 || !(sample.span.length > 0)) continue;
        usable.push_back(&sample);
        samplePictureRate += sample.tally.pictures / sample.span.length;
    }
    if (usable.empty()) return {};
    samplePictureRate /= static_cast<double>(usable.size());
    // Pictures and their bytes are counted in the source, over a window short enough to follow
    // its scenes and long enough that the count of pictures is steady. Without packets, every
    // stretch is alike and has as many pictures as the samples had.
    const double window = std::max(kSourceWindow, seconds / kMostParts);
    const auto windowAround = [&](double middle) {
        const double from = std::clamp(middle - window / 2, 0.0, std::max(0.0, seconds - window));
        return std::pair(from, from + window);
    };
    const auto bytesPerPicture = [&](double from, double to) {
        const double pictures = source.picturesBetween(from, to);
        return pictures > 0 ? source.between(from, to) / pictures : 1.0;
    };
    const auto picturesPerSecond = [&](double middle) {
        const auto [from, to] = windowAround(middle);
        const double pictures = source.picturesBetween(from, to);
        return pictures > 0 ? pictures / (to - from) : samplePictureRate;
    };
    const double wholePictures =
        source.empty() ? seconds * samplePictureRate : source.picturesBetween(0, seconds + window);
    const double keyShare = laterKeyShare(wholePictures, keyInterval);

    std::vector<SampleRates> rates;
    double knownWork = 0;
    int workKnown = 0;
    for (const SampleMeasure* sample : usable) {
        const PictureCost cost = pictureCost(sample->tally);
        const double middle = sample->span.start + sample->span.length / 2;
        // The source over the sample's own span, which the sample encoded; a span too short to
        // hold a picture of the source's takes the window around it.
        const std::pair span(sample->span.start, sample->span.start + sample->span.length);
        const auto [from, to] =
            source.picturesBetween(span.first, span.second) > 0 ? span : windowAround(middle);
        rates.push_back({middle, bytesPerPicture(from, to),
                         cost.plainBytes + (cost.keyBytes - cost.plainBytes) * keyShare,
                         sample->workPerPicture});
        if (sample->workPerPicture) {
            knownWork += *sample->workPerPicture;
            ++workKnown;
        }
    }
    const int count = std::max(1, static_cast<int>(std::round(seconds / window)));
    const double length = seconds / count;
    std::vector<ComplexityProfile::Part> parts;
    for (int i = 0; i < count; ++i) {
        const double middle = (i + 0.5) * length;
        const auto [from, to] = windowAround(middle);
        const double sourceBytes = bytesPerPicture(from, to);
        const SampleRates& sample = standIn(rates, middle, sourceBytes);
        // The output follows the source's bytes at the rate the sample of its scene compresses
        // them; where neither spent any, at the sample's own.
        const double video = sample.sourceBytes > 0 && sourceBytes > 0
                                 ? sample.videoBytes * sourceBytes / sample.sourceBytes
                                 : sample.videoBytes;
        // A sample whose cost is unknown costs what the others cost on average.
        const double work = sample.work.value_or(workKnown > 0 ? knownWork / workKnown : 0);
        const double pictures = picturesPerSecond(middle);
        parts.push_back({i * length, (i + 1) * length, pictures * video + audioBytesPerSecond,
                         pictures * work, pictures});
    }
    // The whole starts with a key picture of its own, and with starting the encoder.
    const PictureCost first = pictureCost(usable.front()->tally);
    parts.front().bytesPerSecond += (first.keyBytes - first.plainBytes) / length;
    parts.front().workPerSecond += startWork / length;
    return ComplexityProfile(std::move(parts));
}

std::optional<Projection> project(const ComplexityProfile& profile, double encodedSeconds,
                                  double bytesWritten, double elapsedSeconds, double heldPictures) {
    if (profile.empty()) return std::nullopt;
    const double whole = profile.seconds();
    const double done = std::clamp(encodedSeconds, 0.0, whole);
    Projection projection{profile.bytesBetween(0, whole), profile.workBetween(0, whole)};
    // What the job has written so far says how far off the samples are, and the profile how the
    // rest compares with what is done. The file holds the pictures only up to those the encoder
    // still holds back, which in a costly scene are a good share of the bytes done. Early on, the
    // written bytes say little: ffmpeg tells them as the file grows, in steps of a quarter of a
    // megabyte; so they count only from a megabyte on, and weigh against a quarter of what the
    // samples foretell for the whole.
    const double held = done < whole ? profile.secondsOfPictures(done, heldPictures) : 0;
    const double written = std::max(0.0, done - held);
    const double weight = kForecastWeight * projection.finalBytes;
    const double bytesDone = profile.bytesBetween(0, written);
    if (bytesWritten >= kTrustedBytes && bytesDone + weight > 0) {
        projection.finalBytes = bytesWritten + (bytesWritten + weight) / (bytesDone + weight) *
                                                   profile.bytesBetween(written, whole);
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
