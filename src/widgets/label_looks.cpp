#include "widgets/label_looks.h"

#include <QPalette>
#include <QWidget>

namespace quillet {

void showHighlighted(QWidget* widget, bool on) {
    QPalette palette = widget->palette();
    const QColor colour = on ? kHighlightText : kNormalText;
    // Labels draw with the window-text colour, boxes with the text colour; a disabled control
    // keeps the style's greyed look.
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::WindowText, colour);
        palette.setColor(group, QPalette::Text, colour);
    }
    widget->setPalette(palette);
}

}  // namespace quillet
