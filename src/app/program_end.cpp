#include "app/program_end.h"

#include <QCoreApplication>

#include "app/forms.h"
#include "app/waits.h"

namespace quillet {

void endProgram(Forms& forms) {
    if (programEnding()) return;
    markProgramEnding();
    forms.unloadAll();
    forms.runningCommands().endAll([] { QCoreApplication::quit(); });
}

}  // namespace quillet
