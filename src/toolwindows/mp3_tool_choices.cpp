#include "toolwindows/mp3_tool_choices.h"

#include <algorithm>
#include <cmath>

#include "base/text_format.h"
#include "widgets/source_video.h"

namespace quillet {

std::string sampleRateOfListItem(std::string_view item) {
    return std::string(item.substr(0, 5));
}

std::string sampleRateCaption(const std::string& rate) {
    return "Audio Sample Rate " + rate + "kHz";
}

std::string presetCaption(std::string_view optionCaption) {
    return "Preset  " + std::string(optionCaption);
}

std::string toolRunningTimeText(std::optional<double> seconds) {
    std::string text = runningTimeText(seconds);
    if (text.size() < 9 && seconds) {
        if (const auto clock = formatClockHms(std::round(*seconds))) text = *clock;
    }
    return text;
}

std::optional<std::string> viewedCommandText(const std::string& commandLine) {
    if (commandLine.find('-') == std::string::npos) return std::nullopt;
    std::string text = commandLine;
    std::replace(text.begin(), text.end(), '-', '\n');
    return text + "\n\nExecute this set of instructions now ?";
}

}  // namespace quillet
