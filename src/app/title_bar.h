#pragma once

class QWidget;

namespace quillet {

// How wide `window` must be for the window manager to show its whole title: the title in the
// larger, bold type of title bars, beside the window's icon and its three buttons. The title bar
// is not the program's to measure, so this is a generous estimate.
int titleBarWidth(const QWidget& window);

}  // namespace quillet
