#include "app/startup.h"

#include <QDir>
#include <QPointer>
#include <QStandardPaths>
#include <iostream>

#include "app/form4.h"
#include "app/forms.h"
#include "app/qt_dialogs.h"
#include "app/scripted_dialogs.h"
#include "main/form1.h"

namespace quillet {

std::unique_ptr<Dialogs> programDialogs() {
    if (qEnvironmentVariableIsSet("QUILLET_SCRIPTED_DIALOGS")) {
        return std::make_unique<ScriptedDialogs>(
            qEnvironmentVariable("QUILLET_SCRIPTED_DIALOGS").toStdString(), &std::cout);
    }
    return std::make_unique<QtDialogs>();
}

void runStartup(Forms& forms) {
    ProgramState& state = forms.state();
    state.DesktopFolder =
        QDir::toNativeSeparators(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation))
            .toStdString();
    state.SplashFinished = false;
    state.JobFinished = false;
    state.OutputOpened = false;
    state.CpuMonitorEnabled = true;
    state.VideoSeconds = "0";

    // Loading the splash brings up the main window behind it.
    QPointer<Form4> splash = &forms.form4();
    if (splash) splash->show();
    applyStartupDefaults(state);
    if (splash) {
        splash->centre();
        splash->raise();
    }
    if (forms.isLoaded(FormId::Form1)) forms.form1().prepareAtStartup();
}

}  // namespace quillet
