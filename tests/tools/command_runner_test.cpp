#include "tools/command_runner.h"

#include <gtest/gtest.h>
#include <time.h>

#include <QCoreApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "byte_pattern.h"
#include "children_left.h"
#include "runner_test_support.h"
#include "tools/running_commands.h"
#include "tools/utf8_paths.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// Processor time this thread has used: a busy wait shows here, an idle one does not.
std::chrono::nanoseconds threadTime() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

class CommandRunnerTest : public ::testing::Test {
protected:
    void TearDown() override {
        EXPECT_TRUE(QTest::qWaitFor([&] { return commands.count() == 0; }, 6000));
        EXPECT_TRUE(children::noChildLeft(children::Left::Unreleased));
    }

    // Runs the command and handles events until its output has ended.
    bool runToEnd(RunningCommands::RunnerHandle& runner, const std::string& commandLine) {
        bool ended = false;
        runner->OutputEnded = [&] { ended = true; };
        if (!runner->start(commandLine)) return false;
        return QTest::qWaitFor([&] { return ended; }, 20000);
    }

    RunningCommands commands{300ms};
    RunningCommands::RunnerHandle runner = commands.newRunner();
};

TEST_F(CommandRunnerTest, PiecesArriveInOrderThenTheEmptyOneThenTheEnd) {
    std::vector<std::string> pieces;
    runner->ReceiveOutputs = [&](const std::string& piece) { pieces.push_back(piece); };
    ASSERT_TRUE(runToEnd(runner, CHILD_TRICKLE " 100 300 5"));
    EXPECT_EQ(pieces, (std::vector<std::string>{std::string(256, 'a'), std::string(44, 'a'),
                                                std::string(5, 'b'), ""}));
    EXPECT_EQ(runner->Outputs(), std::string(300, 'a') + "bbbbb");
    EXPECT_FALSE(runner->running());

    // Nothing to start: no piece, no end.
    pieces.clear();
    EXPECT_FALSE(runner->start("/no/such/program -y"));
    QTest::qWait(50);
    EXPECT_TRUE(pieces.empty());
}

TEST_F(CommandRunnerTest, TenMegabytesArriveInOrderWhileAHandlerShowsAMessageBox) {
    const fs::path done = fs::temp_directory_path() / ("quillet-box-" + std::to_string(::getpid()));
    fs::remove(done);
    const std::size_t size = 10 << 20;
    bool writerFinishedWhileBoxOpen = false;
    std::string received;
    bool piecesFit = true;
    runner->ReceiveOutputs = [&](const std::string& piece) {
        piecesFit = piecesFit && piece.size() <= 256;
        received += piece;
        if (received.size() != piece.size() || piece.empty()) return;  // only the first piece
        QMessageBox box(QMessageBox::Warning, "Quillet", "Still compressing");
        QTimer poll;
        const auto deadline = Clock::now() + 20s;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            writerFinishedWhileBoxOpen = fs::exists(done);
            if (writerFinishedWhileBoxOpen || Clock::now() > deadline) box.done(0);
        });
        poll.start(20);
        box.exec();
    };
    ASSERT_TRUE(runToEnd(
        runner, CHILD_WRITE_BYTES " " + std::to_string(size) + " stderr " + done.string()));
    EXPECT_TRUE(writerFinishedWhileBoxOpen);
    EXPECT_TRUE(piecesFit);
    EXPECT_TRUE(received == children::patternBytes(0, size));
    fs::remove(done);
}

TEST_F(CommandRunnerTest, TimersRunAndTheThreadIdlesWhileACommandRuns) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(20);
    const auto cpuBefore = threadTime();
    ASSERT_TRUE(runToEnd(runner, CHILD_TRICKLE " 100 1 1 1 1 1 1"));
    EXPECT_GE(ticks, 10);
    EXPECT_LT(threadTime() - cpuBefore, 150ms);
}

TEST_F(CommandRunnerTest, EndAllStopsPolitelyThenFirmlyAndReportsTheEnd) {
    int ended = 0;
    commands.endAll([&] { ++ended; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return ended == 1; }, 1000));  // nothing was running

    const struct {
        const char* child;
        std::chrono::milliseconds shortest;
        std::chrono::milliseconds longest;
    } cases[] = {
        {CHILD_QUIT_ON_Q, 0ms, 900ms},       // the polite stop is enough
        {CHILD_IGNORE_STOP, 950ms, 6000ms},  // ended after the grace period (a coarse timer)
    };
    for (const auto& c : cases) {
        RunningCommands ending(1000ms);
        RunningCommands::RunnerHandle child = ending.newRunner();
        ended = 0;
        ASSERT_TRUE(child->start(c.child));
        QTest::qWait(100);
        EXPECT_EQ(ending.count(), 1u);
        const Clock::time_point endAllCalled = Clock::now();
        ending.endAll([&] { ++ended; });
        // A command started while the end is under way is stopped as it starts.
        RunningCommands::RunnerHandle late = ending.newRunner();
        ASSERT_TRUE(late->start(CHILD_QUIT_ON_Q));
        EXPECT_TRUE(QTest::qWaitFor([&] { return ended > 0; }, 8000)) << c.child;
        const auto took = Clock::now() - endAllCalled;
        EXPECT_GE(took, c.shortest) << c.child;
        EXPECT_LT(took, c.longest) << c.child;
        EXPECT_EQ(ending.count(), 0u);
        EXPECT_FALSE(late->running()) << c.child;
        QTest::qWait(400);  // no late second report
        EXPECT_EQ(ended, 1) << c.child;
    }
}

TEST_F(CommandRunnerTest, ARunnerLetGoWhileItsChildRunsStopsItAndTellsNothingMore) {
    for (const char* child : {CHILD_QUIT_ON_Q, CHILD_IGNORE_STOP}) {
        RunningCommands::RunnerHandle window = commands.newRunner();
        int told = 0;
        window->ReceiveOutputs = [&](const std::string&) { ++told; };
        window->OutputEnded = [&] { ++told; };
        ASSERT_TRUE(window->start(child));
        ASSERT_TRUE(QTest::qWaitFor([&] { return told > 0; }, 2000));
        const int toldBefore = told;
        window.reset();
        EXPECT_EQ(commands.count(), 1u) << child;  // kept until its output has ended
        EXPECT_TRUE(QTest::qWaitFor([&] { return commands.count() == 0; }, 5000)) << child;
        EXPECT_EQ(told, toldBefore) << child;
    }
}

// The stand-in ffmpeg writes its output as it ends, on its own or on "q": a stopped run leaves a
// short file, as ffmpeg does, which must not stay under the name of a finished result.
TEST_F(CommandRunnerTest, AStoppedRunTakesBackWhatItWroteAndNothingElse) {
    const fs::path folder = fs::temp_directory_path() / fs::path(u8"quillet runner \u00e9t\u00e9");
    fs::create_directories(folder);
    const fs::path output = folder / fs::path(u8"Compressed-my clip \u00e9.mp4");
    const std::string encode =
        std::string(CHILD_FFMPEG) + " -i clip.mp4 -y \"" + utf8Of(output) + "\"";
    qputenv("CHILD_FFMPEG_PAUSE_MS", "50");
    runner->setOutputFile(utf8Of(output));

    // A run that ends by itself keeps what it wrote: ten seconds of stand-in video.
    ASSERT_TRUE(runToEnd(runner, encode));
    EXPECT_EQ(fs::file_size(output), 10u * 1024);

    // A run stopped by its window letting go, and one stopped at the program's end, rewrite that
    // result with a shorter one, which goes. Each stops within its grace period, a second or two
    // of video in.
    qputenv("CHILD_FFMPEG_PAUSE_MS", "100");
    for (const bool atProgramEnd : {false, true}) {
        ASSERT_TRUE(fs::exists(output));
        RunningCommands::RunnerHandle window = commands.newRunner();
        window->setOutputFile(utf8Of(output));
        bool progress = false;
        window->ReceiveOutputs = [&](const std::string& piece) {
            progress = progress || piece.find("time=") != std::string::npos;
        };
        ASSERT_TRUE(window->start(encode));
        ASSERT_TRUE(QTest::qWaitFor([&] { return progress; }, 5000));
        bool goneWhenEndTold = false;
        if (atProgramEnd) {
            // The program ends as soon as it is told: by then the output must have gone.
            commands.endAll([&] { goneWhenEndTold = !fs::exists(output); });
        } else {
            window.reset();
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return !fs::exists(output); }, 5000))
            << "at the program's end: " << atProgramEnd;
        EXPECT_TRUE(!atProgramEnd || QTest::qWaitFor([&] { return goneWhenEndTold; }, 2000));
        std::ofstream(output, std::ios::binary) << "an earlier result";
    }

    // A stopped run that never reached its output leaves the earlier result as it was.
    runner->setOutputFile(utf8Of(output));
    ASSERT_TRUE(runner->start(CHILD_QUIT_ON_Q));
    QTest::qWait(100);
    runner.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return commands.count() == 0; }, 5000));
    EXPECT_EQ(fs::file_size(output), std::string("an earlier result").size());
    qunsetenv("CHILD_FFMPEG_PAUSE_MS");
    fs::remove_all(folder);
}

}  // namespace
}  // namespace quillet
