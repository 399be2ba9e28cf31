// The second pass's search for a rate that lands within 2% under the target, on size models that
// do and do not follow the rate in proportion.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "cli/target_search.h"

namespace quillet::cli {
namespace {

constexpr double kTarget = 10e6;
constexpr double kAudio = 0.5e6;
constexpr int kEncodesAllowed = 3;

using SizeModel = std::function<double(long long rate)>;

// Runs the search as the companion does: the first attempt at `firstRate`, then the rates it asks.
TargetSearch searched(const SizeModel& size, long long firstRate) {
    TargetSearch search(kTarget, kAudio, kEncodesAllowed);
    long long rate = firstRate;
    search.record(rate, size(rate));
    while (!search.finished()) {
        rate = search.nextRate();
        search.record(rate, size(rate));
    }
    return search;
}

// Video bytes that grow as rate^power, scaled so that `firstRate` misses the target by `miss`.
SizeModel powerLaw(double power, long long firstRate, double miss) {
    const double scale = (kTarget * miss - kAudio) / std::pow(firstRate, power);
    return [=](long long rate) { return kAudio + scale * std::pow(rate, power); };
}

TEST(TargetSearch, LandsWithinTheWindowWhenSizeIsAPowerOfTheRate) {
    const long long firstRate = 2'000'000;
    for (const double power : {0.5, 1.0, 1.8, 2.5}) {
        for (const double miss : {0.4, 0.9, 1.05, 1.9, 3.0}) {
            const TargetSearch search = searched(powerLaw(power, firstRate, miss), firstRate);
            SCOPED_TRACE(testing::Message() << "power " << power << ", first at " << miss);
            ASSERT_TRUE(search.bestUnder());
            EXPECT_TRUE(search.landed()) << search.bestUnder()->bytes / kTarget;
            EXPECT_LE(search.bestUnder()->bytes, kTarget);
        }
    }
}

TEST(TargetSearch, ClosesInOnASizeThatSwingsAndNeverKeepsAnAttemptOverTheTarget) {
    // Size jumps about with the rate as scenes fall differently on the encoder's decisions: the
    // miss seen on a clip of scene cuts (first 1.9 times over, a proportional correction under).
    const SizeModel swinging = [](long long rate) {
        const double r = rate / 1e6;
        return kAudio + 4.6e6 * std::pow(r, 1.7) * (1 + 0.06 * std::sin(r * 23));
    };
    for (const long long firstRate : {900'000LL, 1'460'000LL, 1'900'000LL, 3'000'000LL}) {
        const TargetSearch search = searched(swinging, firstRate);
        SCOPED_TRACE(firstRate);
        EXPECT_LE(search.encodes(), kEncodesAllowed);
        if (const auto best = search.bestUnder()) {
            EXPECT_LE(best->bytes, kTarget);
        }
    }
}

TEST(TargetSearch, AnAttemptOverTheTargetIsNeverTheBestAndLandingEndsTheSearch) {
    TargetSearch search(kTarget, kAudio, kEncodesAllowed);
    search.record(2'000'000, kTarget * 1.01);
    EXPECT_FALSE(search.bestUnder());
    EXPECT_FALSE(search.finished());
    const long long lower = search.nextRate();
    EXPECT_LT(lower, 2'000'000);
    search.record(lower, kTarget * 0.90);
    EXPECT_EQ(search.bestUnder()->rate, lower);
    EXPECT_FALSE(search.landed());
    // Between the two, strictly.
    const long long between = search.nextRate();
    EXPECT_GT(between, lower);
    EXPECT_LT(between, 2'000'000);
    search.record(between, kTarget * 0.985);
    EXPECT_TRUE(search.landed());
    EXPECT_TRUE(search.finished());
    EXPECT_EQ(search.bestUnder()->rate, between);
}

}  // namespace
}  // namespace quillet::cli
