#include "app/program_end.h"

#include <QCoreApplication>
#include <QTimer>

#include "app/forms.h"
#include "app/waits.h"

namespace quillet {

void endProgram(Forms& forms) {
    if (programEnding()) return;
    markProgramEnding();
    forms.unloadAll();
    QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
}

}  // namespace quillet
