#include "main/target_size.h"

namespace quillet {

namespace {

constexpr double kKilobitsPerMegabyte = 8192;

std::optional<double> nonZero(std::optional<double> value) {
    if (value && *value == 0) return std::nullopt;
    return value;
}

// round(size x 8192 / seconds - audio, 3) as the shortest text; empty when a value is missing or
// the running time is zero.
std::optional<std::string> videoBitRate(std::optional<double> sizeMb, std::optional<double> seconds,
                                        std::optional<double> audioKbits,
                                        const FormatLocale& locale) {
    seconds = nonZero(seconds);
    if (!sizeMb || !seconds || !audioKbits) return std::nullopt;
    return numberText(roundHalfEven(*sizeMb * kKilobitsPerMegabyte / *seconds - *audioKbits, 3),
                      locale);
}

}  // namespace

SourceSizeChange sourceSizeChanged(const std::string& sourceSizeText, const FormatLocale& locale) {
    SourceSizeChange change;
    change.statusText = "Init Size: " + sourceSizeText + "Mb";
    if (const auto size = parseNumber(sourceSizeText, locale)) {
        change.sliderMaximum = toInt32(*size);
        change.sliderPosition = toInt32(*size / 4);
    }
    return change;
}

TargetSizeChange targetSizeMoved(int position, const std::string& sourceSizeText,
                                 const std::string& videoSecondsText,
                                 const std::string& audioBitRateText, const FormatLocale& locale) {
    TargetSizeChange change;
    // Without a source size the share cannot be computed, and nothing of the target is shown.
    const auto sourceSize = nonZero(parseNumber(sourceSizeText, locale));
    if (!sourceSize) return change;
    const auto percent = toInt32(position / *sourceSize * 100);
    if (!percent) return change;
    change.targetText = formatNumber(position, kThousandsPattern, locale);
    change.shareText =
        "Target Size - Compress to " + std::to_string(*percent) + "% of Original Video Size";
    change.bitRate = videoBitRate(position, parseNumber(videoSecondsText, locale),
                                  parseNumber(audioBitRateText, locale), locale);
    return change;
}

void applyBitRateStep(ProgramState& state, const FormatLocale& locale) {
    if (!state.AudioBitRate.empty() && state.AudioBitRate.back() == 'k') {
        state.AudioBitRate.pop_back();
    }
    if (const auto rate = videoBitRate(parseNumber(state.TargetSizeMb, locale),
                                       parseNumber(state.VideoSeconds, locale),
                                       parseNumber(state.AudioBitRate, locale), locale)) {
        state.VideoBitRate = *rate;
    }
}

}  // namespace quillet
