#pragma once

#include <optional>
#include <vector>

#include "cli/hevc_stream.h"
#include "cli/source_bytes.h"

namespace quillet::cli {

// A stretch of the source encoded on its own to learn how it compresses.
struct SampleSpan {
    double start = 0;   // seconds into the source
    double length = 0;  // seconds
};

// Together the samples cover at most this share of the source's running time.
inline constexpr double kSampledShare = 0.05;

// Up to a dozen samples spread evenly over `seconds`, one in the middle of each equal part,
// none shorter than half a second unless the whole share is shorter, none longer than two.
std::vector<SampleSpan> sampleSpans(double seconds);

// What one sample came to.
struct SampleMeasure {
    SampleSpan span;
    StreamTally tally;
    // Seconds the encoder took per picture; unknown when its run did not tell.
    std::optional<double> workPerPicture;
};

// The source's cost along its length: each sample stands for the equal part of the source around
// it. Bytes are the whole output's (the picture and `audioBytesPerSecond`); work is encoding time.
class ComplexityProfile {
public:
    struct Part {
        double start, end;  // seconds into the source
        double bytesPerSecond;
        double workPerSecond;
        double picturesPerSecond;  // 0 when unknown
    };
    ComplexityProfile() = default;
    explicit ComplexityProfile(std::vector<Part> parts) : parts_(std::move(parts)) {}

    double bytesBetween(double from, double to) const;
    double workBetween(double from, double to) const;
    // How long the source takes for `pictures` pictures around `at`; 0 when unknown.
    double secondsOfPictures(double at, double pictures) const;
    double seconds() const { return parts_.empty() ? 0 : parts_.back().end; }
    // The same shape with the picture's bytes scaled to `videoBytes` in all and the sound's
    // (`audioBytesPerSecond`) as they are: for an encoder that holds to an average rate.
    ComplexityProfile withVideoBytes(double videoBytes, double audioBytesPerSecond) const;
    bool empty() const { return parts_.empty(); }

private:
    template <typename Density>
    double integral(double from, double to, Density density) const;
    std::vector<Part> parts_;
};

// The whole output's size and encoding time along the source's `seconds`, foretold from the
// samples and from where the source itself spends its bytes: the samples tell how the output's
// bytes and the encoder's time follow the source's bytes, and the source's bytes tell the rest.
// A sample starts with a key picture however still its content, so the whole is given one at its
// start and one every `keyInterval` pictures after, as the encoder does. `startWork` is what
// starting the encoder costs, which the whole spends once at its start.
ComplexityProfile profileFromSamples(const std::vector<SampleMeasure>& samples,
                                     const SourceBytes& source, double seconds,
                                     double audioBytesPerSecond, double startWork = 0,
                                     int keyInterval = 250);

// Where a running job will end: its final size and the seconds it still needs.
struct Projection {
    double finalBytes = 0;
    double secondsLeft = 0;
};

// From `encodedSeconds` of the source done in `elapsedSeconds`, having written `bytesWritten`:
// the profile's shape, scaled to what the job has really done so far. The file lags the seconds
// done by the `heldPictures` the encoder holds back before it writes them.
std::optional<Projection> project(const ComplexityProfile& profile, double encodedSeconds,
                                  double bytesWritten, double elapsedSeconds,
                                  double heldPictures = 0);

}  // namespace quillet::cli
