#pragma once

#include <functional>

class QWidget;

namespace quillet {

// Hands every mouse release on `widget` to `handler` with the button's number: 1 left, 2 right,
// 4 middle, as the program's handlers count them. Labels that act as buttons work this way.
void onMouseUp(QWidget* widget, std::function<void(int)> handler);

}  // namespace quillet
