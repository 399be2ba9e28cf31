#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

#include "app/form4.h"
#include "app/forms.h"
#include "app/scripted_dialogs.h"
#include "app/startup.h"
#include "main/form1.h"

namespace quillet {
namespace {

TEST(Startup, SplashComesFirstThenMainWindowThenSplashFadesAway) {
    ScriptedDialogs dialogs;
    ProgramState state;
    Forms forms(state, dialogs);
    QElapsedTimer clock;
    clock.start();
    runStartup(forms);

    // The splash loaded the main window, waited a second and showed it, staying in front.
    EXPECT_GE(clock.elapsed(), 900);
    ASSERT_TRUE(forms.isLoaded(FormId::Form4));
    QPointer<Form4> splash = &forms.form4();
    EXPECT_TRUE(splash->isVisible());
    EXPECT_TRUE(splash->windowFlags() & Qt::WindowStaysOnTopHint);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_NEAR(splash->geometry().center().x(), screen.center().x(), 2);
    EXPECT_NEAR(splash->geometry().center().y(), screen.center().y(), 2);
    Form1& form1 = forms.form1();
    EXPECT_TRUE(form1.isVisible());
    EXPECT_EQ(form1.minimumSize(), form1.maximumSize());
    EXPECT_FALSE(form1.windowFlags() & Qt::WindowMaximizeButtonHint);

    // The start-up defaults are in place before any user action.
    EXPECT_EQ(state.PresetName, "veryfast");
    EXPECT_EQ(state.ABRBitRate, "900");
    EXPECT_EQ(state.SampleRate, "44100");
    EXPECT_EQ(state.AudioBitRate, "160");
    EXPECT_EQ(state.QPValue, "14");
    EXPECT_EQ(state.QPLookAhead, "18");
    EXPECT_TRUE(state.CpuMonitorEnabled);

    // The clock replaces the waiting text: time, three blanks, date.
    const auto* label3 = splash->findChild<QLabel*>("Label3");
    ASSERT_TRUE(label3);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            static const QRegularExpression clockText(
                R"(^\d\d:\d\d:\d\d \S+   \S+, \S+ \d{1,2} \d{4}$)");
            return clockText.match(label3->text()).hasMatch();
        },
        2000))
        << label3->text().toStdString();

    // Opaque and on top until the four-second tick, then a fade of about 1.3 s.
    QTest::qWait(2500 - static_cast<int>(clock.elapsed() - 1000));
    ASSERT_TRUE(splash);
    EXPECT_TRUE(splash->isVisible());
    EXPECT_DOUBLE_EQ(splash->windowOpacity(), 1.0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }, 8000));
    EXPECT_FALSE(forms.isLoaded(FormId::Form4));
    EXPECT_GE(clock.elapsed(), 5000);
    EXPECT_TRUE(form1.isVisible());
}

TEST(Forms, UnloadWhileAProcedureRunsHidesAtOnceAndDestroysAfterwards) {
    ScriptedDialogs dialogs;
    ProgramState state;
    Forms forms(state, dialogs);
    QPointer<Form1> first = &forms.form1();
    first->show();
    {
        Forms::Busy busy(first);
        forms.unload(FormId::Form1);
        EXPECT_FALSE(forms.isLoaded(FormId::Form1));
        EXPECT_FALSE(first->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(first.isNull());
        // Asking for the window again loads a fresh one.
        EXPECT_NE(&forms.form1(), first.data());
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());

    QPointer<Form1> idle = &forms.form1();
    forms.unload(FormId::Form1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(idle.isNull());
}

}  // namespace
}  // namespace quillet
