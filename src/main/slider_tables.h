#pragma once

#include <string>

#include "base/text_format.h"

namespace quillet {

// What a value label beside a slider shows: the number and, where the slider has one, its unit
// letter ("k" or "M").
struct SliderLabel {
    std::string value;
    std::string unit;
};

// Preset slider (positions 1 to 8): "UltraFast" ... "Slower"; "" outside the table.
std::string presetName(int position);

// Audio bit-rate slider (positions 1 to 13): "64" ... "512" kbit/s; "" outside the table.
std::string audioBitRateText(int position);

// Average bit-rate slider: r = position x 20 kbit/s; above 1000 it reads r / 1000 as "0.00" and
// "M", otherwise r and "k" (50 -> "1000"/"k", 51 -> "1.02"/"M", 46 -> "920"/"k").
SliderLabel abrLabel(int position, const FormatLocale& locale);

// Minimum bit-rate slider: below 7 it reads position x 150 as "000" and "k" (0 -> "000", 6 ->
// "900"), from 7 on position / 6.5 as "0.0" and "M" (7 -> "1.1").
SliderLabel minBitRateLabel(int position, const FormatLocale& locale);

// Maximum bit-rate slider: (position x 10) / 50 as "0.0"; the unit is always "M" (10 -> "2.0").
SliderLabel maxBitRateLabel(int position, const FormatLocale& locale);

// Buffer-size slider: b = position x 100; below 10 it reads b as "000" and "k" (9 -> "900"),
// from 10 on b / 1000 as "0.0" and "M" (10 -> "1.0", 11 -> "1.1").
SliderLabel bufferSizeLabel(int position, const FormatLocale& locale);

}  // namespace quillet
