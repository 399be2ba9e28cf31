// The program started as main() starts it, on the system's own window platform where the run
// gives one (the Windows build under wine shows it on a private display), with stand-ins for
// ffmpeg and ffprobe in its folder. A person's whole session: the splash, the main window, a
// compression chosen and started through the menus, the processor display switched off, and File >
// Exit during the next compression, which leaves no child and no half-written output; then the
// next start.
#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProcess>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <set>

#include "app/form4.h"
#include "app/scripted_dialogs.h"
#include "app/settings_store.h"
#include "app/startup.h"
#include "children_left.h"
#include "main/form1.h"
#include "program_windows.h"
#include "widgets/option_array.h"

namespace quillet {
namespace {

void trigger(QWidget& window, const char* item) {
    QAction* action = window.findChild<QAction*>(item);
    ASSERT_TRUE(action) << item;
    action->trigger();
}

std::string nativePath(const QString& path) {
    return QDir::toNativeSeparators(path).toStdString();
}

class ProgramRun : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        QFile clip(source);
        ASSERT_TRUE(clip.open(QIODevice::WriteOnly));
        clip.write(QByteArray(1 << 20, 'x'));  // the stand-in reads nothing; the size shows
#ifndef _WIN32
        // Elsewhere the store is a file, kept out of the user's own.
        qputenv("QUILLET_SETTINGS_DIR", folder.path().toUtf8());
#endif
        storedSwitch = readSetting(kCpuSection, kCpuKey, kCpuDefault);
    }

    void TearDown() override {
        saveSetting(kCpuSection, kCpuKey, storedSwitch);
        qunsetenv("CHILD_FFMPEG_PAUSE_MS");
    }

    // File > Select Video, the dialog answered with the source; waits for its running time.
    void selectSource(Form1& form) {
        dialogs.answerFile(nativePath(source));
        trigger(form, "mnu_Select");
        ASSERT_TRUE(QTest::qWaitFor([&] { return form.controls().Text8->text() == "10"; }, 10000))
            << form.controls().Text8->text().toStdString();
    }

    QTemporaryDir folder;
    const QString source = folder.filePath("holiday clip.mp4");
    const QString output = folder.filePath("Compressed-holiday clip.mp4");
    std::string storedSwitch;
    ScriptedDialogs dialogs;
};

TEST_F(ProgramRun, CompressesThroughTheMenusThenExitDuringTheNextJobLeavesNoChild) {
    ProgramState state;
    ProgramForms forms(state, dialogs);
    runStartup(forms);

    // The splash first; the main window a second later, behind it.
    ASSERT_TRUE(QTest::qWaitFor([&] { return forms.isLoaded(FormId::Form4); }, 1000));
    QPointer<Form4> splash = &forms.get<Form4>();
    Form1& form = forms.get<Form1>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.isVisible() && splash->isVisible(); }, 5000));
    Form1Controls& c = form.controls();

    // A whole compression at a constant rate factor, through the menus.
    selectSource(form);
    std::set<QString> captions;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] { captions.insert(c.Label1->text()); });
    watch.start(20);
    c.xpOption1->item(1)->click();
    trigger(form, "mnu_StartCompress");
    ASSERT_TRUE(QTest::qWaitFor([&] { return state.JobFinished && !forms.isLoaded(FormId::Form6); },
                                30000));
    watch.stop();
    EXPECT_TRUE(captions.count("Compression Progress 50.00% Completed")) << captions.size();
    EXPECT_EQ(QFileInfo(output).size(), 10 * 1024);
    EXPECT_EQ(state.SourceVideo, "");  // the main window is reset for the next job
    EXPECT_EQ(c.Text8->text(), "0000");

    // The processor display off: kept when the program ends.
    trigger(form, "mnu_ShowCPU");
    EXPECT_FALSE(state.CpuMonitorEnabled);

    // The next compression runs slowly; File > Exit while its ffmpeg runs ends both.
    qputenv("CHILD_FFMPEG_PAUSE_MS", "3000");
    selectSource(form);
    c.xpOption1->item(1)->click();
    trigger(form, "mnu_StartCompress");
    ASSERT_TRUE(QTest::qWaitFor([] { return children::anyChildLeft(children::Left::Any); }, 5000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return c.Label1->text().contains("10.00%"); }, 10000));
    QTimer::singleShot(0, [&] { trigger(form, "mnu_Exit"); });
    QTimer::singleShot(30000, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_FALSE(forms.isLoaded(FormId::Form1));
    EXPECT_TRUE(children::noChildLeft(children::Left::Any));
    // The stopped run rewrote the first result as it stopped: what it wrote does not stay under
    // the final name.
    EXPECT_FALSE(QFileInfo::exists(output));

    // The next start reads the switch back: the display starts off.
    EXPECT_EQ(readSetting(kCpuSection, kCpuKey, kCpuDefault), "0");
#ifdef _WIN32
    // Kept in the current user's part of the registry, under the program's name.
    QProcess query;
    query.start("reg", {"query", R"(HKCU\Software\Quillet2.0\CPUenabled)", "/v", "EnableDisable"});
    ASSERT_TRUE(query.waitForFinished(30000));
    EXPECT_TRUE(QString::fromLocal8Bit(query.readAllStandardOutput())
                    .contains(QRegularExpression(R"(EnableDisable\s+REG_SZ\s+0\b)")));
#endif
    ProgramState nextState;
    ProgramForms next(nextState, dialogs);
    Form1& nextForm = next.get<Form1>();
    EXPECT_FALSE(nextState.CpuMonitorEnabled);
    EXPECT_FALSE(nextForm.findChild<QAction*>("mnu_ShowCPU")->isChecked());
}

}  // namespace
}  // namespace quillet
