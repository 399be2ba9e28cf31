#include <gtest/gtest.h>
#include <unistd.h>

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "app/forms.h"
#include "app/platform_names.h"
#include "app/scripted_dialogs.h"
#include "jobs/output_name.h"
#include "main/form1.h"
#include "main/option_array.h"
#include "media.h"

namespace quillet {
namespace {

// How many processes this test program has started that still exist.
int childProcesses() {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream stat(entry.path() / "stat");
        std::string pid, name, state;
        int parent = 0;
        if (stat >> pid >> name >> state >> parent && parent == ::getpid()) ++count;
    }
    return count;
}

// File > Exit while a compression runs: every window goes, ffmpeg is ended, the program quits.
TEST(ExitDuringJob, EndsFfmpegAndQuits) {
    QTemporaryDir folder;
    const QString source = folder.filePath("long.mp4");
    ASSERT_TRUE(makeClip(source, 60));
    ScriptedDialogs dialogs;
    ProgramState state;
    applyStartupDefaults(state);
    Forms forms(state, dialogs);
    Form1& form = forms.form1();
    form.show();
    state.SourceVideo = QDir::toNativeSeparators(source).toStdString();
    state.OutputVideo = compressedFileName(state.SourceVideo, kThisPlatform.separator).value();
    form.controls().Text6->setText("0,008");
    form.controls().Text8->setText("60");
    form.enableMethodItems();
    form.controls().xpOption1->item(0)->click();

    bool jobReturned = false;
    QTimer::singleShot(0, [&] {
        form.CompressionVars();
        jobReturned = true;
    });
    int runningAtExit = 0;
    QTimer::singleShot(2500, [&] {
        runningAtExit = childProcesses();
        form.findChild<QAction*>("mnu_Exit")->trigger();
    });
    QTimer::singleShot(30000, [] { QCoreApplication::exit(1); });
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(QCoreApplication::exec(), 0);

    EXPECT_EQ(runningAtExit, 1);  // ffmpeg was running
    EXPECT_TRUE(jobReturned);
    EXPECT_LT(clock.elapsed(), 20000);
    EXPECT_FALSE(forms.isLoaded(FormId::Form1));
    EXPECT_FALSE(forms.isLoaded(FormId::Form5));
    // ffmpeg is released by the runner's reader once it has exited, which may come a moment after
    // its output ended.
    EXPECT_TRUE(QTest::qWaitFor([] { return childProcesses() == 0; }, 5000));
}

}  // namespace
}  // namespace quillet
