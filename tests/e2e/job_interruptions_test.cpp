// What a person may do while a compression runs: leave the program, reset the window, start again.
// Every step goes through the real menus and controls, in the order a person takes them.
#include <sys/stat.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

#include "job_driver.h"
#include "jobs/job_steps.h"

namespace quillet {
namespace {

class JobInterruption : public JobDriver {
protected:
    // A minute-long clip, chosen with File > Select Video, so that a job is still running when
    // the test interrupts it.
    QString chooseLongClip() {
        const QString source = folder.filePath("long clip.mp4");
        EXPECT_TRUE(makeClip(source, 60));
        selectVideo(source, "60");
        return source;
    }

    // Runs the event loop until the program quits, with `action` taken from inside it as a
    // person's click arrives. Returns exec()'s answer.
    int quitAfter(const std::function<void()>& action) {
        QTimer::singleShot(0, action);
        QTimer::singleShot(30000, [] { QCoreApplication::exit(1); });
        QElapsedTimer clock;
        clock.start();
        const int answer = QCoreApplication::exec();
        tookToQuit = clock.elapsed();
        return answer;
    }

    // After the program has ended: no window left, no ffmpeg left.
    void expectAllGone(FormId jobWindow) {
        EXPECT_FALSE(forms.isLoaded(FormId::Form1));
        EXPECT_FALSE(forms.isLoaded(jobWindow));
        EXPECT_TRUE(QTest::qWaitFor([] { return ffmpegChildren().empty(); }, 3000));
    }

    qint64 tookToQuit = 0;
};

struct Method {
    const char* name;
    int item;  // of xpOption1
    // The method's command quotes the output, so ffmpeg writes "Compressed-long clip.mp4"; ABR
    // and QP leave it unquoted, and a name with a blank then never gets written at all.
    bool writesUnderTheOutputName;
};

void PrintTo(const Method& method, std::ostream* out) {
    *out << method.name;
}

class ExitDuringJob : public JobInterruption, public ::testing::WithParamInterface<Method> {};

TEST_P(ExitDuringJob, FileExitEndsFfmpegAndQuits) {
    const CompressionJob& job = *compressionJobForMethod(GetParam().name);
    const QString result = output(chooseLongClip());
    startJob(GetParam().item);
    ASSERT_TRUE(waitForFfmpeg());
    ASSERT_TRUE(!GetParam().writesUnderTheOutputName || waitForFile(result));
    EXPECT_EQ(quitAfter([&] { trigger("mnu_Exit"); }), 0);
    EXPECT_LT(tookToQuit, 5000);
    expectAllGone(job.window);
    EXPECT_FALSE(QFileInfo::exists(result));  // no half-written file under the final name
}

TEST_P(ExitDuringJob, ClosingTheMainWindowEndsFfmpegAndQuits) {
    const CompressionJob& job = *compressionJobForMethod(GetParam().name);
    const QString result = output(chooseLongClip());
    startJob(GetParam().item);
    ASSERT_TRUE(waitForFfmpeg());
    ASSERT_TRUE(!GetParam().writesUnderTheOutputName || waitForFile(result));
    EXPECT_EQ(quitAfter([&] { form.close(); }), 0);
    EXPECT_LT(tookToQuit, 5000);
    expectAllGone(job.window);
    EXPECT_FALSE(QFileInfo::exists(result));  // no half-written file under the final name
}

INSTANTIATE_TEST_SUITE_P(EachMethod, ExitDuringJob,
                         ::testing::Values(Method{"TFS", 0, true}, Method{"CRF", 1, true},
                                           Method{"ABR", 2, false}, Method{"QP", 3, false}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(JobInterruption, ResetAppEndsTheJobAndTheNextStartWorks) {
    const QString source = chooseLongClip();
    startJob(1);
    ASSERT_TRUE(waitForFfmpeg());
    ASSERT_TRUE(waitForFile(output(source)));
    trigger("mnu_Deselect");
    EXPECT_FALSE(forms.isLoaded(FormId::Form6));
    EXPECT_TRUE(QTest::qWaitFor([] { return ffmpegChildren().empty(); }, 5000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !QFileInfo::exists(output(source)); }, 1000));
    EXPECT_TRUE(QFileInfo::exists(source));
    // The main window is as it was at the start.
    EXPECT_EQ(state.SourceVideo, "");
    EXPECT_EQ(text(c.Text8), "0000");
    EXPECT_EQ(text(c.status(StatusCell::Written)), "Writen: 0,000Mb");
    for (int index = 0; index < c.xpOption1->count(); ++index) {
        EXPECT_FALSE(c.xpOption1->isSelected(index)) << index;
    }
    QTest::qWait(2500);  // the job's own steps, had any been left, would have run by now
    EXPECT_EQ(state.JobFinished, false);

    // Choosing a source again and starting runs a whole job, which keeps its output.
    const QString shortClip = folder.filePath("short.mp4");
    ASSERT_TRUE(makeClip(shortClip, 2));
    selectVideo(shortClip, "2");
    startJob(1);
    EXPECT_TRUE(waitForJobEnd(FormId::Form6));
    EXPECT_TRUE(probe(output(shortClip)).contains("codec_name=hevc"));
}

TEST_F(JobInterruption, StartingAgainWhileAJobRunsStartsNoSecondFfmpeg) {
    const QString source = chooseLongClip();
    startJob(1);
    ASSERT_TRUE(waitForFfmpeg());
    trigger("mnu_StartCompress");
    QTest::qWait(1500);
    EXPECT_EQ(ffmpegChildren().size(), 1u);
    EXPECT_TRUE(waitForJobEnd(FormId::Form6));
    EXPECT_TRUE(probe(output(source)).contains("codec_name=hevc"));
}

TEST_F(JobInterruption, ExitDuringAToolRunEndsFfmpegAndQuits) {
    const QString source = folder.filePath("long clip.mp4");
    ASSERT_TRUE(makeClip(source, 60));
    QWidget& tool = openTool("mnu_mp3Audio", FormId::Form10, source);
    tool.findChild<QAction*>("mnu_ReEncode")->trigger();
    ASSERT_TRUE(waitForFfmpeg());
    ASSERT_TRUE(waitForFile(output(source)));
    EXPECT_EQ(quitAfter([&] { trigger("mnu_Exit"); }), 0);
    EXPECT_LT(tookToQuit, 5000);
    expectAllGone(FormId::Form10);
    EXPECT_FALSE(QFileInfo::exists(output(source)));
}

TEST_F(JobInterruption, ClosingAToolWindowMidRunEndsItsFfmpeg) {
    const QString source = folder.filePath("long clip.mp4");
    ASSERT_TRUE(makeClip(source, 60));
    QWidget& tool = openTool("mnu_DownScaleRes", FormId::Form11, source, "mnu_Select");
    tool.findChild<QAction*>("mnu_EncVideo")->trigger();
    ASSERT_TRUE(waitForFfmpeg());
    ASSERT_TRUE(waitForFile(output(source)));
    tool.close();
    EXPECT_FALSE(forms.isLoaded(FormId::Form11));
    EXPECT_TRUE(QTest::qWaitFor([] { return ffmpegChildren().empty(); }, 5000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !QFileInfo::exists(output(source)); }, 1000));
    EXPECT_TRUE(forms.isLoaded(FormId::Form1));  // the program goes on
}

TEST_F(JobInterruption, ResetAppDuringAToolRunEndsFfmpegAndUnloadsTheTool) {
    const QString source = folder.filePath("long clip.mp4");
    ASSERT_TRUE(makeClip(source, 60));
    QWidget& tool = openTool("mnu_AlterFPS", FormId::Form13, source);
    tool.findChild<QAction*>("mnu_EncodeVideo")->trigger();
    ASSERT_TRUE(waitForFfmpeg());
    ASSERT_TRUE(waitForFile(output(source)));
    trigger("mnu_Deselect");
    EXPECT_FALSE(forms.isLoaded(FormId::Form13));
    EXPECT_TRUE(QTest::qWaitFor([] { return ffmpegChildren().empty(); }, 5000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !QFileInfo::exists(output(source)); }, 1000));
    QTest::qWait(2500);  // the tool's own steps, had any been left, would have run by now
    EXPECT_FALSE(state.JobFinished);
}

TEST_F(JobInterruption, ExitWhileTheSourceNeverDeliversEndsEverythingWithinFiveSeconds) {
    const QString pipe = folder.filePath("never.mp4");
    ASSERT_EQ(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    selectVideo(pipe);
    // A named pipe has no size and no running time to show; these are what a person would type.
    c.Text6->setText("0,010");
    c.Text8->setText("60");
    startJob(0);
    ASSERT_TRUE(waitForFfmpeg());
    EXPECT_EQ(quitAfter([&] { trigger("mnu_Exit"); }), 0);
    EXPECT_LT(tookToQuit, 5000);
    expectAllGone(FormId::Form5);
}

}  // namespace
}  // namespace quillet
