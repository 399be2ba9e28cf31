#include "app/message_box.h"

#include <algorithm>

namespace quillet {

MessageBoxStyle messageBoxStyle(int flags) {
    using B = MessageBoxButton;
    MessageBoxStyle style;
    switch (flags & 0x0F) {
        case MessageBoxFlags::OkCancel:
            style.buttons = {B::Ok, B::Cancel};
            break;
        case MessageBoxFlags::YesNoCancel:
            style.buttons = {B::Yes, B::No, B::Cancel};
            break;
        case MessageBoxFlags::YesNo:
            style.buttons = {B::Yes, B::No};
            break;
        case MessageBoxFlags::RetryCancel:
            style.buttons = {B::Retry, B::Cancel};
            break;
        default:
            style.buttons = {B::Ok};
            break;
    }
    style.exclamation = (flags & 0xF0) == MessageBoxFlags::Exclamation;
    style.systemModal = (flags & MessageBoxFlags::SystemModal) != 0;
    return style;
}

MessageBoxButton escapeButton(const MessageBoxStyle& style) {
    const auto& buttons = style.buttons;
    if (std::find(buttons.begin(), buttons.end(), MessageBoxButton::Cancel) != buttons.end()) {
        return MessageBoxButton::Cancel;
    }
    return buttons.back();
}

}  // namespace quillet
