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
#include "program_windows.h"
#include "text_fits.h"

namespace quillet {
namespace {

TEST(Startup, SplashComesFirstThenMainWindowThenSplashFadesAway) {
    ScriptedDialogs dialogs;
    ProgramState state;
    ProgramForms forms(state, dialogs);
    QElapsedTimer clock;
    clock.start();
    runStartup(forms);
    EXPECT_LT(clock.elapsed(), 500);  // start-up never waits: the event loop goes on
    ASSERT_TRUE(forms.isLoaded(FormId::Form4));
    ASSERT_TRUE(forms.isLoaded(FormId::Form1));
    QPointer<Form4> splash = &forms.get<Form4>();
    Form1& form1 = forms.get<Form1>();
    EXPECT_FALSE(form1.isVisible());

    // The splash loaded the main window, waited a second and showed it, staying in front.
    ASSERT_TRUE(QTest::qWaitFor([&] { return form1.isVisible(); }, 3000));
    EXPECT_GE(clock.elapsed(), 900);
    EXPECT_TRUE(splash->isVisible());
    EXPECT_TRUE(splash->windowFlags() & Qt::WindowStaysOnTopHint);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_NEAR(splash->geometry().center().x(), screen.center().x(), 2);
    EXPECT_NEAR(splash->geometry().center().y(), screen.center().y(), 2);
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
    EXPECT_TRUE(textIsWhole(*splash));

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

// A window of the registry's tests: it records what the registry tells it.
class RecordingForm : public QWidget, public FormEvents {
public:
    explicit RecordingForm(std::vector<std::string>& log, std::string name)
        : log_(log), name_(std::move(name)) {}
    void Form_Load() override { log_.push_back("load " + name_); }
    void Form_Unload() override {
        log_.push_back("unload " + name_ + (isVisible() ? " shown" : " hidden"));
    }

private:
    std::vector<std::string>& log_;
    std::string name_;
};

TEST(Forms, UnloadHidesAtOnceTellsTheWindowAndDestroysItFromTheEventLoop) {
    ScriptedDialogs dialogs;
    ProgramState state;
    std::vector<std::string> log;
    Forms::Factories factories;
    for (const auto& [id, name] :
         {std::pair{FormId::Form1, "main"}, {FormId::Form3, "monitor"}, {FormId::Form7, "job"}}) {
        factories[static_cast<std::size_t>(id)] = [&log, name = std::string(name)](Forms&) {
            return new RecordingForm(log, name);
        };
    }
    Forms forms(state, dialogs, factories);
    QPointer<QWidget> first = &forms.load(FormId::Form1);
    EXPECT_EQ(&forms.load(FormId::Form1), first.data());  // loaded once
    first->show();
    forms.unload(FormId::Form1);
    EXPECT_FALSE(forms.isLoaded(FormId::Form1));
    EXPECT_FALSE(first->isVisible());
    EXPECT_FALSE(first.isNull());  // still there for the handler that unloaded it
    // Asking for the window again loads a fresh one.
    EXPECT_NE(&forms.load(FormId::Form1), first.data());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());

    // The end of the program: the job and tool windows go first.
    forms.load(FormId::Form7);
    forms.load(FormId::Form3);
    log.clear();
    forms.unloadAll();
    EXPECT_EQ(log, (std::vector<std::string>{"unload job hidden", "unload main hidden",
                                             "unload monitor hidden"}));
}

}  // namespace
}  // namespace quillet
