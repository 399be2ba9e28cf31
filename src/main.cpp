// The program's entry: refuses a second copy, puts every window in the registry and starts up.
#include <QApplication>

#include "app/message_box.h"
#include "app/program_end.h"
#include "app/single_instance.h"
#include "app/startup.h"
#include "app/termination_signals.h"
#include "program_windows.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Quillet2.0");
    // The program ends through its main window's Exit, not when some window happens to close.
    QApplication::setQuitOnLastWindowClosed(false);

    std::unique_ptr<quillet::Dialogs> dialogs = quillet::programDialogs();
    const quillet::SingleInstance instance("Quillet2.0");
    if (!instance.isFirst()) {
        // Whichever button is pressed, the second copy ends here without a window of its own.
        dialogs->messageBox("Quillet (Version 2.0) Is already running.", "Quillet (Version 2.0)",
                            quillet::MessageBoxFlags::SystemModal |
                                quillet::MessageBoxFlags::Exclamation |
                                quillet::MessageBoxFlags::OkCancel);
        return 0;
    }

    quillet::ProgramState state;
    quillet::ProgramForms forms(state, *dialogs);
    quillet::endOnTerminationSignals([&forms] { quillet::endProgram(forms); });
    quillet::runStartup(forms);
    return QApplication::exec();
}
