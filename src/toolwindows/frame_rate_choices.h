#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "base/text_format.h"

namespace quillet {

// The frame rates the frame-rate tool offers, by option; 30 is chosen when the window loads and
// after every run.
inline constexpr std::array<int, 6> kFrameRates = {15, 20, 24, 25, 29, 30};
inline constexpr int kDefaultFrameRateOption = 5;

// A custom frame rate typed into the box: the whole-number part of its value, towards minus
// infinity ("23.9" gives 23, "-5.5" gives -6). Empty when the text is no number or the result
// does not fit, and the rate chosen before stays in force.
std::optional<int> customFrameRate(std::string_view text, const FormatLocale& locale);

}  // namespace quillet
