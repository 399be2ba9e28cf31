#include "tools/resolution_probe.h"

#include <algorithm>
#include <cctype>

#include "base/text_format.h"
#include "tools/command_words.h"

namespace quillet {

namespace {

// What numbers and the result lose at both ends: blanks, and the line ends of either system.
constexpr std::string_view kBlanksAndLineEnds = " \r\n";

// A number's text: trimmed, with one trailing character dropped if it is not a digit.
std::string numberText(std::string_view text) {
    text = trimAny(text, kBlanksAndLineEnds);
    if (!text.empty() && !std::isdigit(static_cast<unsigned char>(text.back()))) {
        text.remove_suffix(1);
    }
    return std::string(trimAny(text, kBlanksAndLineEnds));
}

}  // namespace

std::string resolutionProbeCommandLine(const std::string& programFolder,
                                       const std::string& videoPath, const PlatformNames& names) {
    return programFolder + names.separator + "ffprobe" + std::string(names.executableSuffix) +
           " -v error -show_entries stream=width,height -of default=noprint_wrappers=1 -i " +
           quoteArgument(videoPath);
}

std::optional<std::string> parseResolutionPiece(std::string_view piece) {
    constexpr std::string_view key = "height=";
    const auto found = findIgnoringCase(piece, key);
    if (!found) return std::nullopt;
    const std::size_t at = *found;
    const std::string_view before = piece.substr(0, at);
    const std::string width = numberText(before.substr(std::min<std::size_t>(6, before.size())));
    const std::string height = numberText(piece.substr(at + key.size()));
    std::string result = width + " x " + height;
    // Several video streams leave line ends inside the width: each becomes a blank.
    std::replace(result.begin(), result.end(), '\n', ' ');
    std::replace(result.begin(), result.end(), '\r', ' ');
    return std::string(trimAny(result, kBlanksAndLineEnds));
}

}  // namespace quillet
