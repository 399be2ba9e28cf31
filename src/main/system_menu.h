#pragma once

class QWidget;

namespace quillet {

// Takes Size and Maximize off a window's system menu (the menu of its title-bar icon), so that it
// can be neither resized nor maximised from there. Needs the window's native handle, so it is done
// once the window is shown. Only Windows has such a menu; elsewhere this does nothing.
void removeSizeAndMaximizeFromSystemMenu(QWidget& window);

}  // namespace quillet
