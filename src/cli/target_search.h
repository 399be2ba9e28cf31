#pragma once

#include <optional>
#include <vector>

namespace quillet::cli {

// The second pass of a two-pass target size, run again at corrected rates until its output lands
// within the target and no more than 2% under it, or the encodes allowed are spent. An output
// over the target is never the one kept: the best attempt is the largest that is not over.
//
// The encoder's size does not follow the rate in proportion (scene cuts, noise), so a correction
// in proportion swings from over to under and back. Each next rate comes instead from a power law
// fitted through the two attempts nearest the aim, in log-log terms; once attempts stand on both
// sides of the target, the next rate stays strictly between them, so the search closes in.
class TargetSearch {
public:
    struct Attempt {
        long long rate;  // video bits per second asked for
        double bytes;    // the whole output's size
    };

    // `audioBytes` is the part of every output that the video rate does not change.
    TargetSearch(double targetBytes, double audioBytes, int encodesAllowed);

    // Notes an attempt; true when it is the new best not over the target.
    bool record(long long rate, double bytes);
    // Landed within the window, out of encodes, or out of rates to try between two attempts.
    bool finished() const;
    // The rate of the next attempt; only while not finished.
    long long nextRate() const;

    // The largest attempt that is not over the target.
    std::optional<Attempt> bestUnder() const;
    bool landed() const;  // the best attempt is within the window
    int encodes() const { return static_cast<int>(attempts_.size()); }
    double targetBytes() const { return target_; }

    static constexpr double kLowestShare = 0.98;  // of the target, the window's floor
    static constexpr double kAimedShare = 0.99;   // the middle of the window

private:
    std::optional<Attempt> closestOver() const;
    double videoBytes(const Attempt& attempt) const { return attempt.bytes - audio_; }

    double target_;
    double audio_;
    int encodesAllowed_;
    std::vector<Attempt> attempts_;
};

}  // namespace quillet::cli
