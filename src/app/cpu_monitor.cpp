#include "app/cpu_monitor.h"

namespace quillet {

std::optional<std::string> cpuLabelText(double percent, const FormatLocale& locale) {
    const std::optional<std::string> number = formatNumber(percent, kPercentPattern, locale);
    if (!number) return std::nullopt;
    return "CPU: " + *number + "%";
}

std::optional<std::string> cpuCellAfterReading(CpuSampler& sampler, const FormatLocale& locale) {
    const std::optional<double> percent = sampler.read();
    if (!percent) return std::nullopt;
    return cpuLabelText(*percent, locale);
}

std::optional<bool> cpuSwitchFromStored(std::string_view stored, const FormatLocale& locale) {
    const std::optional<double> number = parseNumber(stored, locale);
    if (number == 1.0) return true;
    if (number == 0.0) return false;
    return std::nullopt;
}

std::string cpuSwitchStoredText(bool enabled) {
    return enabled ? "1" : "0";
}

}  // namespace quillet
