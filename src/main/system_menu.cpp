#include "main/system_menu.h"

#include <QWidget>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace quillet {

void removeSizeAndMaximizeFromSystemMenu(QWidget& window) {
#ifdef Q_OS_WIN
    HMENU menu = GetSystemMenu(reinterpret_cast<HWND>(window.winId()), FALSE);
    if (!menu) return;
    // The Size command's code 0xF000, passed sign-extended from 16 to 32 bits as the window has
    // always done; then Maximize (0xF030). Flags 0: by command.
    DeleteMenu(menu, 0xFFFFF000, 0);
    DeleteMenu(menu, 61488, 0);
#else
    (void)window;
#endif
}

}  // namespace quillet
