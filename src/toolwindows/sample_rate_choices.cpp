#include "toolwindows/sample_rate_choices.h"

#include "base/text_format.h"

namespace quillet {

namespace {

constexpr int k44100Option = 5;
constexpr int k48000Option = 6;

}  // namespace

std::optional<std::string> sampleRateOfCaption(std::string_view caption) {
    const std::string lower = lowerCaseAscii(std::string(caption));
    if (lower.find("khz") == std::string::npos) return std::nullopt;
    std::string rate;
    for (std::size_t at = 0; at < caption.size();) {
        if (lower.compare(at, 3, "khz") == 0) {
            at += 3;
        } else {
            rate += caption[at++];
        }
    }
    return std::string(trimBlanks(rate));
}

std::optional<int> mainWindowRateItem(int chooserOption) {
    if (chooserOption == k44100Option) return 0;
    if (chooserOption == k48000Option) return 1;
    return std::nullopt;
}

std::optional<int> chooserOptionOf(std::optional<int> mainWindowItem) {
    if (mainWindowItem == 0) return k44100Option;
    if (mainWindowItem == 1) return k48000Option;
    return std::nullopt;
}

}  // namespace quillet
