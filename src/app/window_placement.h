#pragma once

class QWidget;

namespace quillet {

class Forms;

// Moves `window` (sized to its contents unless it has a size of its own) beside the main window
// when the screen has room for it there, so that the main window's displays stay in sight;
// otherwise near the screen's right edge. Does not show it.
void placeBesideMainWindow(Forms& forms, QWidget& window);

}  // namespace quillet
