#include <QApplication>

#include "app/forms.h"
#include "app/single_instance.h"
#include "app/startup.h"
#include "app/waits.h"

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
                            4145);
        return 0;
    }

    quillet::ProgramState state;
    quillet::Forms forms(state, *dialogs);
    quillet::runStartup(forms);
    // The main window may already have been closed while start-up waited.
    if (quillet::programEnding()) return 0;
    return QApplication::exec();
}
