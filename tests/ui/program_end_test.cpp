#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTimer>

#include "app/forms.h"
#include "app/program_end.h"
#include "app/scripted_dialogs.h"
#include "main/form1.h"
#include "program_windows.h"

namespace quillet {
namespace {

// Ending the program while a window's command runs and a message box is open: the box is answered,
// the windows go at once, the child that ignores the polite request is ended firmly, the program
// keeps handling events meanwhile and quits once the run is over.
TEST(ProgramEnd, EndsAStubbornChildAndQuitsWithoutBlocking) {
    ScriptedDialogs dialogs;
    ProgramState state;
    ProgramForms forms(state, dialogs);
    forms.get<Form1>().show();
    RunningCommands::RunnerHandle runner = forms.runningCommands().newRunner();
    ASSERT_TRUE(runner->start(CHILD_IGNORE_STOP));
    bool boxReturned = false;
    QTimer::singleShot(0, [&] {
        QMessageBox box(QMessageBox::Warning, "Quillet", "Still compressing", QMessageBox::Ok);
        box.exec();
        boxReturned = true;
    });
    QTimer::singleShot(300, [&] { endProgram(forms); });
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start(50);
    QTimer::singleShot(20000, [] { QCoreApplication::exit(1); });

    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(boxReturned);
    EXPECT_FALSE(runner->running());
    EXPECT_FALSE(forms.isLoaded(FormId::Form1));
    EXPECT_GT(ticks, 20);  // the grace period passed with the event loop running
    EXPECT_LT(clock.elapsed(), 10000);
}

}  // namespace
}  // namespace quillet
