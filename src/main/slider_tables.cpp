#include "main/slider_tables.h"

#include <array>

namespace quillet {

namespace {

constexpr std::array<const char*, 8> kPresets = {"UltraFast", "SuperFast", "VeryFast", "Faster",
                                                 "Fast",      "Medium",    "Slow",     "Slower"};
constexpr std::array<const char*, 13> kAudioRates = {
    "64", "80", "96", "112", "128", "160", "192", "224", "256", "320", "384", "448", "512"};

template <std::size_t N>
std::string tableEntry(const std::array<const char*, N>& table, int position) {
    if (position < 1 || position > static_cast<int>(N)) return {};
    return table[static_cast<std::size_t>(position - 1)];
}

std::string shown(double value, NumberPattern pattern, const FormatLocale& locale) {
    return formatNumber(value, pattern, locale).value_or("");
}

}  // namespace

std::string presetName(int position) {
    return tableEntry(kPresets, position);
}

std::string audioBitRateText(int position) {
    return tableEntry(kAudioRates, position);
}

SliderLabel abrLabel(int position, const FormatLocale& locale) {
    const int rate = position * 20;
    if (rate > 1000) return {shown(rate / 1000.0, kTwoDecimalsPattern, locale), "M"};
    return {std::to_string(rate), "k"};
}

SliderLabel minBitRateLabel(int position, const FormatLocale& locale) {
    if (position < 7) return {shown(position * 150, kThreeDigitsPattern, locale), "k"};
    return {shown(position / 6.5, kOneDecimalPattern, locale), "M"};
}

SliderLabel maxBitRateLabel(int position, const FormatLocale& locale) {
    return {shown(position * 10 / 50.0, kOneDecimalPattern, locale), "M"};
}

SliderLabel bufferSizeLabel(int position, const FormatLocale& locale) {
    const int size = position * 100;
    if (position < 10) return {shown(size, kThreeDigitsPattern, locale), "k"};
    return {shown(size / 1000.0, kOneDecimalPattern, locale), "M"};
}

}  // namespace quillet
