#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include "app/forms.h"
#include "app/program_end.h"
#include "app/scripted_dialogs.h"
#include "main/form1.h"
#include "tools/dos_outputs.h"

namespace quillet {
namespace {

// Ending the program while a window's command runs: the windows go at once, the child that
// ignores the polite request is ended firmly, the program keeps handling events meanwhile and
// quits once the run has returned.
TEST(ProgramEnd, EndsAStubbornChildAndQuitsWithoutBlocking) {
    ScriptedDialogs dialogs;
    ProgramState state;
    Forms forms(state, dialogs);
    forms.form1().show();
    std::unique_ptr<DOSOutputs> runner = forms.runningCommands().newRunner();
    bool returned = false;
    QTimer::singleShot(0, [&] {
        runner->ExecuteCommand(CHILD_IGNORE_STOP);
        returned = true;
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
    EXPECT_TRUE(returned);
    EXPECT_FALSE(forms.isLoaded(FormId::Form1));
    EXPECT_GT(ticks, 20);  // the grace period passed with the event loop running
    EXPECT_LT(clock.elapsed(), 10000);
}

}  // namespace
}  // namespace quillet
