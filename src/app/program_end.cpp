#include "app/program_end.h"

#include <QApplication>
#include <QDialog>

#include "app/forms.h"

namespace quillet {

void endProgram(Forms& forms) {
    if (!forms.startEnding()) return;
    // A message box or file dialog left open would keep its own loop, and the handler that opened
    // it, running after the end: it is answered as if cancelled.
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(window);
        if (dialog && dialog->isVisible()) dialog->reject();
    }
    forms.unloadAll();
    forms.runningCommands().endAll([] { QCoreApplication::quit(); });
}

}  // namespace quillet
