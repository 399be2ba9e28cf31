#pragma once

// The texts and the stored switch of the processor monitor, which shows the load in the CPU cell
// of the main window's status strip.

#include <optional>
#include <string>
#include <string_view>

#include "app/cpu_sampler.h"
#include "base/text_format.h"

namespace quillet {

// The CPU cell before the first reading, and while the monitor is off.
inline constexpr std::string_view kCpuCalculatingText = "CPU: Calculating";
inline constexpr std::string_view kCpuOffText = "CPU: 00.00%";

// Timer1 of the monitor window reads the load this often.
inline constexpr int kCpuReadingIntervalMs = 2500;

// The CPU cell for a reading: "CPU: " and the percentage as "00.00" with the locale's decimal
// separator, then "%" (5.5 gives "CPU: 05.50%"). Empty for a reading that is not a number.
std::optional<std::string> cpuLabelText(double percent, const FormatLocale& locale);

// The CPU cell after one reading of `sampler`; nothing when no reading could be taken (the system
// offers no load figures, say), and the cell then keeps the text it has.
std::optional<std::string> cpuCellAfterReading(CpuSampler& sampler, const FormatLocale& locale);

// What the stored switch asks for when the main window loads: on for a text that is 1 as a number,
// off for 0, and no change for anything else, a text that is not a number included.
std::optional<bool> cpuSwitchFromStored(std::string_view stored, const FormatLocale& locale);

// The text stored for the switch when the main window closes: "1" on, "0" off.
std::string cpuSwitchStoredText(bool enabled);

}  // namespace quillet
