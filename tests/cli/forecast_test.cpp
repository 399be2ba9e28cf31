// The forecast: what a stream of samples holds, where the samples are taken, and how the
// source's cost along its length turns into the final size and the time left.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "cli/forecast.h"
#include "cli/hevc_stream.h"
#include "cli/source_bytes.h"

namespace quillet::cli {
namespace {

// A unit of a start-code stream: the start code, two header bytes of `type`, and `size` bytes of
// which the first says whether a slice starts a picture.
std::string unit(int type, std::size_t size, bool startsPicture = true, bool longCode = false) {
    std::string bytes = longCode ? std::string("\0\0\0\1", 4) : std::string("\0\0\1", 3);
    bytes += static_cast<char>(type << 1);
    bytes += '\1';
    bytes += static_cast<char>(startsPicture ? 0x80 : 0x00);
    bytes += std::string(size - 1, '\x55');
    return bytes;
}

TEST(HevcStream, KeyPicturesAndTheirParameterSetsAreToldApart) {
    // Parameter sets, a key picture in two slices, then two plain pictures.
    const std::string head = unit(32, 20) + unit(33, 40) + unit(34, 10) +
                             unit(19, 900, true, true) + unit(19, 300, false);
    const std::string stream = head + unit(1, 100) + unit(0, 50);
    const StreamTally tally = tallyStream(stream);
    EXPECT_EQ(tally.pictures, 3);
    EXPECT_EQ(tally.keyPictures, 1);
    EXPECT_EQ(tally.bytes, stream.size());
    EXPECT_EQ(tally.keyBytes, head.size());
    // Bytes that hold no stream are counted, and hold no picture.
    const StreamTally noise = tallyStream(std::string(1000, '\x7f'));
    EXPECT_EQ(noise.pictures, 0);
    EXPECT_EQ(noise.bytes, 1000);
    EXPECT_EQ(tallyStream("").pictures, 0);
    EXPECT_EQ(tallyStream(std::string("\0\0\1\x26", 4)).pictures, 0);  // a unit cut short
}

TEST(Forecast, SamplesAreSpreadAndTakeAtMostTheirShareOfTheRunningTime) {
    for (const double seconds : {0.5, 3.0, 20.0, 30.0, 180.0, 36000.0}) {
        const std::vector<SampleSpan> spans = sampleSpans(seconds);
        ASSERT_FALSE(spans.empty()) << seconds;
        EXPECT_LE(spans.size(), 12u);
        double sampled = 0;
        double previousEnd = 0;
        for (const SampleSpan& span : spans) {
            EXPECT_GE(span.start, previousEnd) << seconds;
            previousEnd = span.start + span.length;
            sampled += span.length;
        }
        EXPECT_LE(previousEnd, seconds);
        EXPECT_LE(sampled, seconds * kSampledShare * 1.0001) << seconds;
        // The first sample lies in the first part, the last in the last.
        EXPECT_LT(spans.front().start, seconds / spans.size());
        EXPECT_GT(spans.back().start, seconds - seconds / spans.size());
    }
    EXPECT_EQ(sampleSpans(30).size(), 3u);
    EXPECT_EQ(sampleSpans(36000).back().length, 2.0);  // a long film is not sampled for minutes
    for (const double none : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_TRUE(sampleSpans(none).empty()) << none;
    }
}

// A sample of 25 pictures in a second: one key picture of `keyBytes`, the others of `plainBytes`;
// the encoder took `work` seconds for it.
SampleMeasure sample(double start, double plainBytes, double keyBytes, std::optional<double> work) {
    if (work) *work /= 25;
    return {{start, 1.0}, {25, 1, keyBytes + 24 * plainBytes, keyBytes}, work};
}

TEST(Forecast, EachStretchFollowsTheSourceAtTheRateOfTheSampleOfItsOwnScene) {
    // 100 s whose source spends 1,000 bytes a second up to a cut at 40 s and 9,000 after it.
    std::vector<SourceBytes::Packet> packets;
    for (int i = 0; i < 2500; ++i) packets.push_back({i * 0.04, i < 1000 ? 40.0 : 360.0});
    // The simple scene compresses to half, the busy one to a quarter (plain pictures).
    const auto profile =
        profileFromSamples({sample(12, 20, 2000, 0.5), sample(37, 20, 2000, 0.5),
                            sample(62, 90, 9000, 2.0), sample(87, 90, 9000, std::nullopt)},
                           SourceBytes(packets), 100, 20000);
    ASSERT_FALSE(profile.empty());
    EXPECT_DOUBLE_EQ(profile.seconds(), 100);
    // A sample's key picture is not taken for its content: the whole's 2,500 pictures get one at
    // the start and nine after it, one every 250 but not among the last few.
    const double simple = 25 * (20 + (2000 - 20) * 9 / 2500.0);
    const double busy = 25 * (90 + (9000 - 90) * 9 / 2500.0);
    EXPECT_NEAR(profile.bytesBetween(0, 40), 40 * (simple + 20000) + 1980, 1);
    // The stretch from the cut to halfway to the next sample follows the busy scene's sample, not
    // the nearer simple one at the simple one's rate.
    EXPECT_NEAR(profile.bytesBetween(40, 50), 10 * (busy + 20000), 1);
    EXPECT_NEAR(profile.bytesBetween(50, 100), 50 * (busy + 20000), 1);
    // Held to an average rate, the picture keeps its shape and the sound its bytes.
    const ComplexityProfile held = profile.withVideoBytes(1e6, 20000);
    EXPECT_NEAR(held.bytesBetween(0, 100), 1e6 + 100 * 20000, 1e-3);
    EXPECT_NEAR((held.bytesBetween(50, 100) - 50 * 20000) / 1e6,
                50 * busy / (profile.bytesBetween(0, 100) - 100 * 20000), 1e-9);
    // A sample whose cost is unknown costs what the others cost on average.
    EXPECT_NEAR(profile.workBetween(0, 40), 40 * 0.5, 1e-9);
    EXPECT_NEAR(profile.workBetween(90, 100), 10 * 1.0, 1e-9);
    // Twenty seconds have two key pictures, not three; starting the encoder is paid once.
    const auto brief = profileFromSamples({sample(10, 20, 2000, 0.5)}, SourceBytes(), 20, 0, 3);
    EXPECT_NEAR(brief.bytesBetween(0, 20), 500 * 20 + 2 * (2000 - 20), 1e-6);
    EXPECT_NEAR(brief.workBetween(0, 20), 20 * 0.5 + 3, 1e-9);
    // Samples with no picture are left out; with none left there is no profile.
    EXPECT_TRUE(profileFromSamples({{{10, 1}, {}, 1.0}}, SourceBytes(packets), 100, 0).empty());
}

TEST(Forecast, TheSourcesPacketsAreReadWithoutItsKeyPictures) {
    const SourceBytes source = parsePacketAnswer(
        "pts_time=0.000000\ndts_time=0.000000\nsize=5000\nflags=K_\n"
        "pts_time=N/A\ndts_time=0.040000\nsize=100\nflags=__\n"
        "pts_time=0.080000\r\ndts_time=0.080000\r\nsize=200\r\nflags=__\r\n"
        "pts_time=N/A\ndts_time=N/A\nsize=999\nflags=__\n"
        "pts_time=0.120000\nsize=300\nflags=__\n");
    EXPECT_EQ(source.between(0, 1), 600);
    EXPECT_EQ(source.between(0.04, 0.08), 100);
    // A source of key pictures only keeps them.
    EXPECT_EQ(parsePacketAnswer("pts_time=0\nsize=10\nflags=K_\npts_time=1\nsize=20\nflags=K_\n")
                  .between(0, 2),
              30);
    EXPECT_TRUE(parsePacketAnswer("no packets here\n").empty());
}

TEST(Forecast, TheProjectionFollowsTheContentNotOnlyTheRateSoFar) {
    // Cheap first quarter, costly rest: 1 MB/s and then 3 MB/s; 1 and 3 s/s of work.
    constexpr double kMb = 1048576;
    const ComplexityProfile profile({{0, 25, 1 * kMb, 1, 10}, {25, 100, 3 * kMb, 3, 10}});
    // Before anything is done, the profile itself.
    const auto start = project(profile, 0, 0, 0);
    ASSERT_TRUE(start);
    EXPECT_DOUBLE_EQ(start->finalBytes, 250 * kMb);
    // A quarter done at twice the bytes and half the time the samples said. The time left scales
    // so; the bytes written weigh against a quarter of the samples' whole (62.5 MB), as they are
    // told late and in steps.
    const auto quarter = project(profile, 25, 50 * kMb, 12.5);
    ASSERT_TRUE(quarter);
    EXPECT_DOUBLE_EQ(quarter->finalBytes, (50 + (50.0 + 62.5) / (25 + 62.5) * 225) * kMb);
    EXPECT_DOUBLE_EQ(quarter->secondsLeft, 0.5 * 225);
    // Half done at 2.5 times the bytes: they pull the rest up. The rate so far would have said
    // 500 MB, and a quarter done 200, while the content still to come costs more.
    const auto half = project(profile, 50, 250 * kMb, 25);
    ASSERT_TRUE(half);
    EXPECT_DOUBLE_EQ(half->finalBytes, (250 + (250.0 + 62.5) / (100 + 62.5) * 150) * kMb);
    // With 20 pictures (2 s) still in the encoder, the file holds 48 s, and the rest counts from
    // there.
    EXPECT_DOUBLE_EQ(project(profile, 50, 250 * kMb, 25, 20)->finalBytes,
                     (250 + (250.0 + 62.5) / (94 + 62.5) * 156) * kMb);
    // Less than a megabyte written says nothing yet: ffmpeg tells the size in steps.
    EXPECT_DOUBLE_EQ(project(profile, 10, 0.5 * kMb, 5)->finalBytes, 250 * kMb);
    const auto done = project(profile, 100, 480 * kMb, 90, 20);  // the end: what was written
    ASSERT_TRUE(done);
    EXPECT_DOUBLE_EQ(done->finalBytes, 480 * kMb);
    EXPECT_DOUBLE_EQ(done->secondsLeft, 0);
    EXPECT_FALSE(project(ComplexityProfile(), 10, 100, 5));
}

}  // namespace
}  // namespace quillet::cli
