#pragma once

#include <vector>

namespace quillet {

// The numbers the program uses for its message boxes: the sum of a button set, an icon and the
// system-modal bit, as the windows pass them.
namespace MessageBoxFlags {
inline constexpr int OkOnly = 0;
inline constexpr int OkCancel = 1;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int RetryCancel = 5;
inline constexpr int Exclamation = 48;
inline constexpr int SystemModal = 4096;
}  // namespace MessageBoxFlags

// What the user pressed; the numbers are the ones callers compare against.
enum class MessageBoxButton { Ok = 1, Cancel = 2, Retry = 4, Yes = 6, No = 7 };

struct MessageBoxStyle {
    std::vector<MessageBoxButton> buttons;  // in the order shown, the first being the default
    bool exclamation = false;
    bool systemModal = false;
};

// Decodes a flag number into buttons and icon; unknown button sets fall back to OK alone.
MessageBoxStyle messageBoxStyle(int flags);

// The button that closing the box without choosing stands for (Escape or the close button):
// Cancel where offered, else the last button (OK alone, No of Yes/No).
MessageBoxButton escapeButton(const MessageBoxStyle& style);

}  // namespace quillet
