#include "app/window_placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "app/forms.h"

namespace quillet {

void placeBesideMainWindow(Forms& forms, QWidget& window) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    // A window that has no size of its own takes the size its contents ask for.
    if (!window.testAttribute(Qt::WA_Resized)) window.adjustSize();
    QPoint place(screen.right() - window.width() - 20, screen.top() + 40);
    if (const QWidget* mainWindow = forms.loaded(FormId::Form1)) {
        const QRect main = mainWindow->frameGeometry();
        if (main.right() + 10 + window.width() <= screen.right()) {
            place = {main.right() + 10, main.top()};
        }
    }
    window.move(place);
}

}  // namespace quillet
