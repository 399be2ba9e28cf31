#include "cli/target_search.h"

#include <algorithm>
#include <cmath>

namespace quillet::cli {

namespace {

// How steeply size may follow rate in a fit; beyond these the two attempts say more about noise
// than about the encoder.
constexpr double kFlattestPower = 0.3;
constexpr double kSteepestPower = 3.0;

}  // namespace

TargetSearch::TargetSearch(double targetBytes, double audioBytes, int encodesAllowed)
    : target_(targetBytes), audio_(audioBytes), encodesAllowed_(encodesAllowed) {}

bool TargetSearch::record(long long rate, double bytes) {
    const auto bestBefore = bestUnder();
    attempts_.push_back({rate, bytes});
    return bytes <= target_ && (!bestBefore || bytes > bestBefore->bytes);
}

std::optional<TargetSearch::Attempt> TargetSearch::bestUnder() const {
    std::optional<Attempt> best;
    for (const Attempt& attempt : attempts_) {
        if (attempt.bytes <= target_ && (!best || attempt.bytes > best->bytes)) best = attempt;
    }
    return best;
}

std::optional<TargetSearch::Attempt> TargetSearch::closestOver() const {
    std::optional<Attempt> closest;
    for (const Attempt& attempt : attempts_) {
        if (attempt.bytes > target_ && (!closest || attempt.bytes < closest->bytes)) {
            closest = attempt;
        }
    }
    return closest;
}

bool TargetSearch::landed() const {
    const auto best = bestUnder();
    return best && best->bytes >= target_ * kLowestShare;
}

bool TargetSearch::finished() const {
    if (landed() || encodes() >= encodesAllowed_) return true;
    const auto under = bestUnder();
    const auto over = closestOver();
    return under && over && over->rate - under->rate <= 1;
}

long long TargetSearch::nextRate() const {
    const double aim = target_ * kAimedShare - audio_;
    const auto under = bestUnder();
    const auto over = closestOver();

    // The two attempts to fit: those on either side of the target, else the two nearest the aim.
    std::vector<Attempt> nearest = attempts_;
    std::sort(nearest.begin(), nearest.end(), [&](const Attempt& a, const Attempt& b) {
        return std::abs(a.bytes - target_) < std::abs(b.bytes - target_);
    });
    const Attempt base = under && over ? *under : nearest.front();
    const std::optional<Attempt> other = under && over        ? over
                                         : nearest.size() > 1 ? std::optional(nearest[1])
                                                              : std::nullopt;

    double power = 1;
    if (other && other->rate != base.rate && videoBytes(base) > 0 && videoBytes(*other) > 0) {
        const double fitted = std::log(videoBytes(*other) / videoBytes(base)) /
                              std::log(static_cast<double>(other->rate) / base.rate);
        if (std::isfinite(fitted)) power = std::clamp(fitted, kFlattestPower, kSteepestPower);
    }
    double rate = videoBytes(base) > 0 && aim > 0
                      ? base.rate * std::pow(aim / videoBytes(base), 1 / power)
                      : base.rate / 2.0;
    if (under && over) {
        // Strictly inside the bracket, a tenth of it from either end, so that it always narrows.
        const double margin = (over->rate - under->rate) / 10.0;
        rate = std::clamp(rate, under->rate + margin, over->rate - margin);
    }
    return std::max(1LL, std::llround(rate));
}

}  // namespace quillet::cli
