#include "toolwindows/frame_rate_choices.h"

#include <cmath>

namespace quillet {

std::optional<int> customFrameRate(std::string_view text, const FormatLocale& locale) {
    const auto value = parseNumber(text, locale);
    if (!value) return std::nullopt;
    return toInt32(std::floor(*value));
}

}  // namespace quillet
