// The program ended by the system while it compresses: an orderly end for the termination
// signals, which leaves no half-written output, and no ffmpeg left behind however it ends.
#include <gtest/gtest.h>
#include <signal.h>

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>

#include "media.h"

namespace quillet {
namespace {

// Whether a process still runs (a zombie waiting for its parent counts as ended).
bool running(int pid) {
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string field, name, state;
    return stat >> field >> name >> state && state != "Z";
}

class Termination : public ::testing::TestWithParam<int> {};

TEST_P(Termination, LeavesNoFfmpegRunning) {
    QTemporaryDir folder;
    const QString source = folder.filePath("long clip.mp4");
    ASSERT_TRUE(makeClip(source, 60));
    QProcess program;
    program.start(JOB_SUBJECT, {source});
    ASSERT_TRUE(program.waitForStarted());
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.canReadLine(); }, 15000));
    const QString line = QString::fromUtf8(program.readLine()).trimmed();
    ASSERT_TRUE(line.startsWith("ffmpeg ")) << line.toStdString();
    const int ffmpeg = line.mid(7).toInt();
    ASSERT_TRUE(running(ffmpeg));

    const QString output = folder.filePath("Compressed-long clip.mp4");
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFileInfo::exists(output); }, 15000));

    const int signal = GetParam();
    ::kill(static_cast<pid_t>(program.processId()), signal);
    if (signal == SIGKILL) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !running(ffmpeg); }, 2000));
    } else {
        // An orderly end: ffmpeg asked to stop, what it wrote taken back, then the program quits
        // by itself.
        ASSERT_TRUE(program.waitForFinished(10000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_FALSE(running(ffmpeg));
        EXPECT_FALSE(QFileInfo::exists(output));
        EXPECT_TRUE(QFileInfo::exists(source));
    }
    program.waitForFinished(5000);
}

INSTANTIATE_TEST_SUITE_P(EachSignal, Termination,
                         ::testing::Values(SIGTERM, SIGINT, SIGHUP, SIGKILL),
                         [](const auto& info) { return std::string(sigabbrev_np(info.param)); });

}  // namespace
}  // namespace quillet
