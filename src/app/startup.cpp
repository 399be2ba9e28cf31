#include "app/startup.h"

#include <QDir>
#include <QStandardPaths>
#include <iostream>

#include "app/form4.h"
#include "app/forms.h"
#include "app/main_window.h"
#include "app/qt_dialogs.h"
#include "app/scripted_dialogs.h"

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

    // Loading the splash brings up the main window behind it, a second later; start-up goes on
    // from there.
    Form4& splash = forms.get<Form4>();
    splash.whenMainWindowShown([&forms, splash = &splash] {
        splash->show();
        applyStartupDefaults(forms.state());
        splash->centre();
        splash->raise();
        if (MainWindow* mainWindow = forms.mainWindow()) mainWindow->prepareAtStartup();
    });
}

}  // namespace quillet
