#pragma once

#include <QColor>

class QWidget;

namespace quillet {

// The main window's colours: every caption and value in the normal text colour; a value that has
// just changed in the highlight colour until a short timer puts the normal colour back.
inline const QColor kNormalText(38, 56, 80);
inline const QColor kHighlightText(16, 63, 145);
inline const QColor kCellGround(224, 224, 224);

// Shows a label's or a box's text in the highlight colour (on) or the normal colour (off).
void showHighlighted(QWidget* widget, bool on);

}  // namespace quillet
