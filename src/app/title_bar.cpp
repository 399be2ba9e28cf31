#include "app/title_bar.h"

#include <QFontMetrics>
#include <QWidget>

namespace quillet {

int titleBarWidth(const QWidget& window) {
    QFont font = window.font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.25);
    const QFontMetrics metrics(font);
    const int iconAndButtons = 4 * metrics.height() + 48;
    return metrics.horizontalAdvance(window.windowTitle()) + iconAndButtons;
}

}  // namespace quillet
